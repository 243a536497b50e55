#pragma once

#include <string>

namespace quillary {

/// What the desktop knows of the things that a dock's items name. Paths are absolute, UTF-8.
class FileFacts {
public:
    virtual ~FileFacts() = default;

    /// Whether the path names an application rather than a document or folder.
    [[nodiscard]] virtual bool isApplication(const std::string& path) const = 0;
    /// Whether a file or folder exists at the path.
    [[nodiscard]] virtual bool exists(const std::string& path) const = 0;
    /// The name that the file manager shows for the path; the last path component when there is no better
    /// one.
    [[nodiscard]] virtual std::string displayName(const std::string& path) const = 0;
};

} // namespace quillary
