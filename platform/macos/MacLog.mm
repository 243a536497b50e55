#import "platform/macos/MacLog.h"

#include "platform/macos/LogLine.h"

#import <os/log.h>

namespace quillary {

void MacLog::write(const std::string& line) {
    writeLine(line);
}

void MacLog::writeLine(const std::string& line) {
    static os_log_t log = os_log_create("org.quillary.Quillary", "program");
    const std::string plain = logLine(line);
    os_log_with_type(log, OS_LOG_TYPE_DEFAULT, "%{public}s", plain.c_str());
}

} // namespace quillary
