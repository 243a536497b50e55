#pragma once

#include "platform/SystemLog.h"

#include <string>
#include <vector>

namespace quillary::test {

/// Keeps what is written.
class LinesLog final : public SystemLog {
public:
    void write(const std::string& line) override { lines.push_back(line); }

    std::vector<std::string> lines;
};

} // namespace quillary::test
