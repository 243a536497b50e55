#pragma once

#include <QByteArray>
#include <QColor>
#include <QJsonObject>

#include <filesystem>
#include <string>
#include <vector>

namespace quillary::test {

/// The home of a user who has nothing yet, in a temporary folder that is gone with this object. HOME and the
/// XDG variables of the whole test process point into it.
class Home {
public:
    Home();
    ~Home();
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_folder; }
    /// What XDG_DATA_DIRS of the program names: nothing of the machine is in it.
    [[nodiscard]] std::filesystem::path systemData() const { return m_folder / "system"; }

    /// Installs an application of that id: its windows have the id as class, its icon is that colour all
    /// over. Starting it shows a window. `more` is appended to the desktop entry. Returns the entry's path.
    std::string install(const std::string& id, QColor colour, const std::string& more = {}) const;

    [[nodiscard]] std::filesystem::path settingsFile() const;
    /// Writes a file, with the folders above it.
    static void write(const std::filesystem::path& file, const std::string& text);
    [[nodiscard]] static std::string read(const std::filesystem::path& file);
    void writeSettings(const std::string& json) const { write(settingsFile(), json); }
    /// The settings as they stand in the file; empty when there is none or it is no JSON object.
    [[nodiscard]] QJsonObject settings() const;
    /// The entry of a screen in the settings file; empty when there is none.
    [[nodiscard]] QJsonObject dockSettings(const std::string& screenKey) const;

private:
    std::filesystem::path m_folder;
};

/// Keys of the monitors that have no serial number: the 32-bit FNV-1a hash of their names.
inline const std::string leftKey = "272375920";
inline const std::string rightKey = "462935941";

/// JSON of one screen's dock; `options` are further members ("\"edge\":\"left\"").
[[nodiscard]] std::string dockJson(const std::string& screenKey, const std::vector<std::string>& items,
                                   const std::string& options = {});
/// JSON of the whole settings, memory display off so that pictures depend on nothing else on the machine.
[[nodiscard]] std::string settingsJson(const std::vector<std::string>& docks);

} // namespace quillary::test
