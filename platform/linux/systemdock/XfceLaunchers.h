#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The launchers that Xfce's panels hold.
namespace quillary::XfceLaunchers {

/// The entries of the launcher plugins, as paths below the panel's folder ("launcher-9/16.desktop"), in the
/// order of the panels and of their plugins. `channel` is the text of xfconf's xfce4-panel.xml; a damaged one
/// gives what stands before the damage.
[[nodiscard]] std::vector<std::string> entryFiles(std::string_view channel);

/// Path of the entry of which a launcher's is the copy (X-XFCE-Source); empty when it doesn't say or that has
/// gone.
[[nodiscard]] std::string sourceOf(const std::filesystem::path& launcher);

} // namespace quillary::XfceLaunchers
