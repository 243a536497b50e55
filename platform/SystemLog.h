#pragma once

#include <string>

namespace quillary {

/// The system's log.
class SystemLog {
public:
    virtual ~SystemLog() = default;
    /// Writes one line of UTF-8. Line breaks and control characters become spaces.
    virtual void write(const std::string& line) = 0;
};

} // namespace quillary
