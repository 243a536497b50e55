#include "platform/linux/login/LinuxLoginItem.h"

#include "core/AtomicFile.h"
#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/LinuxFolders.h"
#include "platform/linux/login/AutostartEntry.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillary {

namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

bool starts(const fs::path& entry) {
    return AutostartEntry::starts(entry, CurrentDesktop::ofSession().names());
}

} // namespace

LinuxLoginItem::LinuxLoginItem(Program program) : m_program(std::move(program)) {}

fs::path LinuxLoginItem::userEntry() const {
    return LinuxFolders::configuration() / "autostart" / (m_program.id + ".desktop");
}

std::vector<fs::path> LinuxLoginItem::systemEntries() const {
    std::vector<fs::path> entries;
    for (const auto& folder : LinuxFolders::systemConfiguration()) {
        entries.push_back(folder / "autostart" / (m_program.id + ".desktop"));
    }
    return entries;
}

bool LinuxLoginItem::startedBySystem() const {
    // The first entry decides, even when it starts nothing.
    const auto entries = systemEntries();
    const auto first = std::ranges::find_if(entries, isThere);
    return first != entries.end() && starts(*first);
}

LoginItem::Status LinuxLoginItem::status() const {
    const bool started = isThere(userEntry()) ? starts(userEntry()) : startedBySystem();
    return started ? Status::enabled : Status::disabled;
}

Result<> LinuxLoginItem::write(const std::string& text) const {
    const fs::path entry = userEntry();
    std::error_code error;
    fs::create_directories(entry.parent_path(), error);
    if (error) {
        return Failure("cannot create " + entry.parent_path().string() + ": " + error.message());
    }
    if (const auto written = AtomicFile::write(entry, text); !written) {
        return Failure("cannot write " + entry.string() + ": " + written.error());
    }
    return {};
}

Result<> LinuxLoginItem::registerItem() {
    const auto text = AutostartEntry::text(m_program.name, m_program.id, m_program.path);
    return text ? write(*text) : Failure("an entry cannot start " + m_program.path);
}

Result<> LinuxLoginItem::unregisterItem() {
    if (startedBySystem()) {
        return write(AutostartEntry::hiddenText(m_program.name));
    }
    std::error_code error;
    fs::remove(userEntry(), error);
    if (error) {
        return Failure("cannot remove " + userEntry().string() + ": " + error.message());
    }
    return {};
}

} // namespace quillary
