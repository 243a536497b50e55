#include "tests/desktop/Home.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quillary::test {

namespace {

constexpr int iconPixels = 256;

void set(const char* name, const std::filesystem::path& value) {
    setenv(name, value.c_str(), 1);
}

std::string joined(const std::vector<std::string>& parts, const std::string& quote) {
    std::string text;
    for (const auto& part : parts) {
        text.append(text.empty() ? "" : ",").append(quote).append(part).append(quote);
    }
    return text;
}

} // namespace

Home::Home() {
    std::string name = (std::filesystem::temp_directory_path() / "quillary-desktop-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        std::abort();
    }
    m_folder = name;
    for (const char* sub : {"config", "data/applications", "cache", "run", "system/applications"}) {
        std::filesystem::create_directories(m_folder / sub);
    }
    std::filesystem::permissions(m_folder / "run", std::filesystem::perms::owner_all);
    set("HOME", m_folder);
    set("XDG_CONFIG_HOME", m_folder / "config");
    set("XDG_DATA_HOME", m_folder / "data");
    set("XDG_CACHE_HOME", m_folder / "cache");
    set("XDG_RUNTIME_DIR", m_folder / "run");
}

Home::~Home() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string Home::install(const std::string& id, QColor colour, const std::string& more) const {
    const auto icon = m_folder / (id + ".png");
    QImage picture(iconPixels, iconPixels, QImage::Format_RGB32);
    picture.fill(colour);
    picture.save(QString::fromStdString(icon.string()));
    const auto entry = m_folder / "data/applications" / (id + ".desktop");
    write(entry, "[Desktop Entry]\nType=Application\nName=" + id + "\nIcon=" + icon.string() + "\nExec=\"" +
                     QUILLARY_TEST_APPLICATION + "\" " + id + "\nStartupWMClass=" + id + "\n" + more);
    return entry.string();
}

std::filesystem::path Home::settingsFile() const {
    return m_folder / "config/Quillary/settings.json";
}

void Home::write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

std::string Home::read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

QJsonObject Home::settings() const {
    return QJsonDocument::fromJson(QByteArray::fromStdString(read(settingsFile()))).object();
}

QJsonObject Home::dockSettings(const std::string& screenKey) const {
    const auto docks = settings().value(QLatin1String("docks")).toArray();
    for (const auto& dock : docks) {
        if (dock.toObject().value(QLatin1String("screenKey")).toString().toStdString() == screenKey) {
            return dock.toObject();
        }
    }
    return {};
}

std::string dockJson(const std::string& screenKey, const std::vector<std::string>& items,
                     const std::string& options) {
    return R"({"screenKey":")" + screenKey + R"(","items":[)" + joined(items, "\"") + "]" +
           (options.empty() ? "" : ",") + options + "}";
}

std::string settingsJson(const std::vector<std::string>& docks) {
    return R"({"showMemory":false,"onboarded":true,"docks":[)" + joined(docks, "") + "]}";
}

} // namespace quillary::test
