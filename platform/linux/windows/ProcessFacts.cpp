#include "platform/linux/windows/ProcessFacts.h"

#include "core/BoundedFile.h"
#include "core/Utf8.h"
#include "platform/linux/glib/KeyFile.h"
#include "platform/linux/windows/UnitName.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace quillary {

namespace {

constexpr std::size_t mostArguments = 64;
constexpr std::size_t longestCommandLine = 16384;
constexpr std::size_t longestEnvironment = std::size_t{1} << 20U;
constexpr std::size_t longestGroupList = 16384;
constexpr std::size_t longestSandboxFile = 65536;
constexpr std::string_view deletedMark = " (deleted)";

// Calls the visitor with each part until it returns false.
template<typename Visitor>
void split(std::string_view text, char separator, Visitor visit) {
    while (!text.empty()) {
        const auto end = text.find(separator);
        if (!visit(text.substr(0, end)) || end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

std::string executableOf(const std::filesystem::path& folder) {
    std::error_code error;
    auto path = std::filesystem::read_symlink(folder / "exe", error).string();
    if (error || !isValidUtf8(path)) {
        return {};
    }
    // A program whose file was replaced by an update goes on running.
    if (path.ends_with(deletedMark)) {
        path.resize(path.size() - deletedMark.size());
    }
    return path;
}

std::vector<std::string> argumentsOf(const std::filesystem::path& folder) {
    const auto text = readFileStart(folder / "cmdline", longestCommandLine).value_or("");
    std::vector<std::string> arguments;
    split(text, '\0', [&arguments](std::string_view word) {
        arguments.emplace_back(isValidUtf8(word) ? word : std::string_view());
        return arguments.size() < mostArguments;
    });
    return arguments;
}

// Whether the innermost scope or service of the group's path is one that snapd made for the snap.
bool isOfSnap(std::string_view group, std::string_view name) {
    constexpr std::string_view snapMark = "snap.";
    std::string_view unit;
    split(group, '/', [&unit](std::string_view part) {
        unit = part.ends_with(".scope") || part.ends_with(".service") ? part : unit;
        return true;
    });
    if (!unit.starts_with(snapMark)) {
        return false;
    }
    unit.remove_prefix(snapMark.size());
    return unescapeUnitPart(unit.substr(0, unit.find('.'))) == name;
}

// The control group must be known already.
void readEnvironment(ProcessFacts& facts, const std::filesystem::path& folder) {
    constexpr std::string_view entryName = "GIO_LAUNCHED_DESKTOP_FILE=";
    constexpr std::string_view pidName = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
    constexpr std::string_view snapName = "SNAP_INSTANCE_NAME=";
    const auto text = readFileStart(folder / "environ", longestEnvironment).value_or("");
    split(text, '\0', [&](std::string_view variable) {
        if (variable.starts_with(pidName)) {
            variable.remove_prefix(pidName.size());
            std::from_chars(variable.data(), variable.data() + variable.size(), facts.launchedEntryPid);
        } else if (variable.starts_with(entryName) && isValidUtf8(variable)) {
            facts.launchedEntry = variable.substr(entryName.size());
        } else if (variable.starts_with(snapName) &&
                   isOfSnap(facts.controlGroup, variable.substr(snapName.size()))) {
            facts.sandbox = variable.substr(snapName.size());
        }
        return true;
    });
}

std::string flatpakIdOf(const std::filesystem::path& folder) {
    const auto file = KeyFile::read(folder / "root" / ".flatpak-info", longestSandboxFile);
    return file ? file->text("Application", "name") : std::string();
}

std::string controlGroupOf(const std::filesystem::path& folder) {
    const auto text = readFileStart(folder / "cgroup", longestGroupList).value_or("");
    std::string result;
    split(text, '\n', [&result](std::string_view line) {
        constexpr std::string_view unified = "0::";
        constexpr std::string_view systemd = ":name=systemd:";
        if (!isValidUtf8(line)) {
            return true;
        }
        // Where systemd has a separate hierarchy, the unified one exists too, with "/" for every process.
        const auto place = line.find(systemd);
        if (place != std::string_view::npos) {
            result = line.substr(place + systemd.size());
        } else if (line.starts_with(unified) && result.empty()) {
            result = line.substr(unified.size());
        }
        return true;
    });
    return result;
}

} // namespace

ProcessReader::ProcessReader(std::filesystem::path root) : m_root(std::move(root)) {}

ProcessFacts ProcessReader::read(std::int64_t pid) const {
    ProcessFacts facts;
    if (pid <= 0) {
        return facts;
    }
    facts.pid = pid;
    const auto folder = m_root / std::to_string(pid);
    facts.executable = executableOf(folder);
    facts.arguments = argumentsOf(folder);
    facts.controlGroup = controlGroupOf(folder);
    readEnvironment(facts, folder);
    if (auto flatpak = flatpakIdOf(folder); !flatpak.empty()) {
        facts.sandbox = std::move(flatpak);
    }
    return facts;
}

} // namespace quillary
