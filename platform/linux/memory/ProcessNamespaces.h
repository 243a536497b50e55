#pragma once

#include <string>

namespace quillary {

/// The namespaces that distinguish containers (namespaces(7)), as /proc names them: "pid:[4026531836]".
/// Empty when they may not be read.
struct ProcessNamespaces {
    std::string pid;
    std::string mount;

    bool operator==(const ProcessNamespaces&) const = default;
};

} // namespace quillary
