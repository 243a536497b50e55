#include "platform/linux/SyslogLog.h"

#include "core/SingleLine.h"

#include <syslog.h>
#include <unistd.h>

namespace quillary {

namespace {

constexpr std::size_t longestLine = 2048;

// One call for the line and its end keeps lines of several programs apart.
void writeToStandardError(const std::string& line) {
    const auto ended = line + "\n";
    // A failure to write to the log has nowhere to be reported.
    [[maybe_unused]] const auto count = ::write(STDERR_FILENO, ended.data(), ended.size());
}

} // namespace

std::string asLogLine(std::string_view text) {
    return singleLine(text, longestLine, " ");
}

SyslogLog::SyslogLog() {
    ::openlog("quillary", LOG_PID, LOG_USER);
}

void SyslogLog::write(const std::string& line) {
    const auto plain = asLogLine(line);
    ::syslog(LOG_NOTICE, "%s", plain.c_str());
    writeToStandardError(plain);
}

} // namespace quillary
