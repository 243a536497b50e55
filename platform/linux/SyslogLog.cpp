#include "platform/linux/SyslogLog.h"

#include <glib.h>
#include <syslog.h>
#include <unistd.h>

namespace quillary {

namespace {

constexpr std::size_t longestLine = 2048;
constexpr gunichar lineSeparator = 0x2028;
constexpr gunichar paragraphSeparator = 0x2029;
constexpr gunichar firstMalformed = static_cast<gunichar>(-2);

// The line and its end in one call, so that lines of several programs don't mix.
void writeToStandardError(const std::string& line) {
    const auto ended = line + "\n";
    // A failure of the log cannot be reported anywhere.
    [[maybe_unused]] const auto count = ::write(STDERR_FILENO, ended.data(), ended.size());
}

} // namespace

std::string asLogLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const auto code = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
        const bool malformed = code >= firstMalformed;
        const auto length =
            malformed ? std::size_t{1} : static_cast<std::size_t>(g_unichar_to_utf8(code, nullptr));
        const bool blank =
            malformed || g_unichar_iscntrl(code) != 0 || code == lineSeparator || code == paragraphSeparator;
        const auto part = blank ? std::string_view(" ") : text.substr(0, length);
        if (line.size() + part.size() > longestLine) {
            break;
        }
        line += part;
        text.remove_prefix(length);
    }
    return line;
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
