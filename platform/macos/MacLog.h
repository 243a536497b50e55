#pragma once

#include "platform/SystemLog.h"

namespace quillary {

/// Writes to the unified log, under the program's subsystem and without redaction.
class MacLog final : public SystemLog {
public:
    void write(const std::string& line) override;
    /// Like `write`, from any thread.
    static void writeLine(const std::string& line);
};

} // namespace quillary
