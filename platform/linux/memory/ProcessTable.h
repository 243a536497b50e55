#pragma once

#include "platform/linux/memory/FootprintEstimate.h"
#include "platform/linux/memory/ProcTexts.h"
#include "platform/linux/memory/ProcessTraits.h"
#include "platform/linux/memory/ReadingBudget.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace quillary {

/// What one sample leaves to the next. A value: each sample works on a copy of its own.
struct ProcessTable {
    struct Record {
        ProcTexts::Stat stat;
        /// In how many samples the process was met.
        unsigned sightings = 0;
        /// Null until they could be read.
        std::shared_ptr<const ProcessTraits> traits;
        /// Path of the last application that the process showed windows of.
        std::string shown;
        /// Pages in memory when the cheap figure was last asked for.
        std::uint64_t pagesThen = 0;
        FootprintEstimate estimate;
        /// Path of the application that it belonged to.
        std::string application;
    };

    /// By process id.
    std::unordered_map<std::int32_t, Record> records;
    /// By application: how many bytes its processes have taken on and given up so far.
    std::unordered_map<std::string, std::uint64_t> families;
    ReadingBudget budget;
    /// How many samples there were.
    std::uint64_t samples = 0;
};

} // namespace quillary
