#pragma once

#include <QIcon>

#include <string>

namespace quillary {

/// The icons of applications, folders and documents.
class FileIcons {
public:
    virtual ~FileIcons() = default;

    /// The icon of the absolute path (UTF-8) in every size the system has; a generic one when it has none.
    /// Never null.
    [[nodiscard]] virtual QIcon icon(const std::string& path) const = 0;
};

} // namespace quillary
