#pragma once

#include "platform/SystemLog.h"

#include <string_view>

namespace quillary {

/// Writes to syslog(3) (facility user, priority notice) and to standard error.
class SyslogLog final : public SystemLog {
public:
    SyslogLog();

    void write(const std::string& line) override;
};

/// The text as one line of a log: control characters, line breaks (Unicode's too) and malformed UTF-8 as
/// spaces, at most 2,048 bytes, cut at a character.
[[nodiscard]] std::string asLogLine(std::string_view text);

} // namespace quillary
