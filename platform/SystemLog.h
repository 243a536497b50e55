#pragma once

#include <string>

namespace quillary {

/// The system's log.
class SystemLog {
public:
    virtual ~SystemLog() = default;
    /// Writes one line. UTF-8; line breaks and control characters are written as spaces.
    virtual void write(const std::string& line) = 0;
};

} // namespace quillary
