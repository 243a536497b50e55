#pragma once

#include <QIcon>

#include <string>
#include <vector>

/// Icons as file managers show them; never null. Pictures that are too large or cannot be read count as
/// missing.
namespace quillary::PathIcons {

/// The icon of an entry's Icon key: a themed name, or the absolute path of a picture. A generic application's
/// when there is none.
[[nodiscard]] QIcon ofEntry(const std::string& iconKey);
/// The icon of a folder: the home folder and the user's special folders (xdg-user-dirs) have their own.
[[nodiscard]] QIcon ofFolder(const std::string& path);
/// The icon of a file's content type (Shared MIME-info Database), which its name gives, else its first bytes.
[[nodiscard]] QIcon ofFile(const std::string& path);

/// Names of themed icons for a folder, the most special first.
[[nodiscard]] std::vector<std::string> folderIconNames(const std::string& path);

} // namespace quillary::PathIcons
