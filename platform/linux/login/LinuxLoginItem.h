#pragma once

#include "platform/LoginItem.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quillary {

/// The login item by the Desktop Application Autostart standard: an entry in the user's autostart folder
/// ($XDG_CONFIG_HOME, else ~/.config), which takes the place of one of the same name in the system's
/// ($XDG_CONFIG_DIRS, else /etc/xdg).
class LinuxLoginItem final : public LoginItem {
public:
    /// What the entry says of the program.
    struct Program {
        /// The entry's file name without ".desktop", and the icon's name.
        std::string id;
        /// For people.
        std::string name;
        /// Absolute path of what is started.
        std::string path;
    };
    explicit LinuxLoginItem(Program program);

    [[nodiscard]] Status status() const override;
    [[nodiscard]] Result<> registerItem() override;
    /// Removes the user's entry, or hides the system's.
    [[nodiscard]] Result<> unregisterItem() override;

private:
    [[nodiscard]] std::filesystem::path userEntry() const;
    [[nodiscard]] std::vector<std::filesystem::path> systemEntries() const;
    [[nodiscard]] bool startedBySystem() const;
    [[nodiscard]] Result<> write(const std::string& text) const;

    Program m_program;
};

} // namespace quillary
