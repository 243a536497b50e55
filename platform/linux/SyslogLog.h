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

/// The text as `SyslogLog` writes it: one line of at most 2,048 bytes (`singleLine`), with a space for each
/// malformed byte.
[[nodiscard]] std::string asLogLine(std::string_view text);

} // namespace quillary
