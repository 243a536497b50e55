#pragma once

#include "platform/SystemLog.h"

namespace quillary {

/// The unified log, where the program's lines stand unredacted under its own subsystem.
class MacLog final : public SystemLog {
public:
    void write(const std::string& line) override;
    /// The same, from any thread.
    static void writeLine(const std::string& line);
};

} // namespace quillary
