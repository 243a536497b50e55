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

/// The state that one sample leaves to the next. Each sample works on its own copy.
struct ProcessTable {
    struct Record {
        ProcTexts::Stat stat;
        /// The number of samples in which the process was found.
        unsigned sightings = 0;
        /// Null until they could be read.
        std::shared_ptr<const ProcessTraits> traits;
        /// Path of the last application that the process showed windows of.
        std::string shown;
        /// Pages in memory when the cheap figure was last read.
        std::uint64_t pagesThen = 0;
        FootprintEstimate estimate;
        /// Path of the application that it belonged to.
        std::string application;
    };

    /// By process id.
    std::unordered_map<std::int32_t, Record> records;
    /// By application: the bytes that its processes have allocated and freed so far, added up.
    std::unordered_map<std::string, std::uint64_t> families;
    ReadingBudget budget;
    /// The number of samples so far.
    std::uint64_t samples = 0;
};

} // namespace quillary
