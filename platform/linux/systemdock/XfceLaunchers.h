#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The launchers in Xfce's panels.
namespace quillary::XfceLaunchers {

/// The desktop entries of the launcher plugins, as paths relative to the panel's folder
/// ("launcher-9/16.desktop"), in the order of the panels and of their plugins. `channel` is the text of
/// xfconf's xfce4-panel.xml; of a damaged one, what precedes the damage is read.
[[nodiscard]] std::vector<std::string> entryFiles(std::string_view channel);

/// The path of the entry that a launcher's entry was copied from (X-XFCE-Source); empty when it names none or
/// that file no longer exists.
[[nodiscard]] std::string sourceOf(const std::filesystem::path& launcher);

} // namespace quillary::XfceLaunchers
