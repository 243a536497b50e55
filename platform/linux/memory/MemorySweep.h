#pragma once

#include "core/AppUsage.h"
#include "core/ProcessSample.h"
#include "platform/linux/memory/BusyProcesses.h"
#include "platform/linux/memory/EntryPaths.h"
#include "platform/linux/memory/ProcFilesystem.h"
#include "platform/linux/memory/ProcessTable.h"
#include "platform/linux/windows/DesktopNow.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace quillary {

/// The machine, the user and the clocks that a sweep works with.
struct MemorySurroundings {
    ProcFilesystem processes;
    /// Whose processes count, by effective user id.
    uid_t user = 0;
    /// This program.
    std::int32_t ownPid = 0;
    /// Its desktop file id: an application of that id is never reported.
    std::string ownId;
    /// See `EntryPaths`.
    std::vector<std::filesystem::path> entryFolders;
    /// Seconds that have passed, and seconds of a processor that this thread used, each since any moment.
    std::function<double()> clock;
    std::function<double()> processorTime;
};

/// One pass over all of the user's processes: which application each belongs to and how much memory it uses.
///
/// Cheap figures are read in each pass, for processes whose number of pages changed. Exact figures, for which
/// the kernel walks over all pages, are read as far as the budget goes, the most doubtful first.
class MemorySweep {
public:
    /// All must outlive the sweep. `table` holds the state of the last sweep and takes that of this one.
    MemorySweep(const MemorySurroundings& surroundings, BusyProcesses& busy, ProcessTable& table);

    /// The applications that use memory, as `AppMemoryGrouping::sum` orders them.
    [[nodiscard]] std::vector<AppUsage> run(const DesktopNow& desktop);

private:
    using Record = ProcessTable::Record;
    /// A process that belongs to an application.
    struct Owned {
        std::int32_t pid = 0;
        Record* record = nullptr;
    };

    void survey();
    void readTraits();
    void noteWindows(const DesktopNow& desktop);
    [[nodiscard]] std::vector<Owned> attribute(EntryPaths& paths);
    void readCheaply(std::vector<Owned>& owned);
    void readExactly(std::vector<Owned>& owned);
    [[nodiscard]] bool isStill(std::int32_t pid, const Record& record) const;

    const MemorySurroundings& m_surroundings;
    BusyProcesses& m_busy;
    ProcessTable& m_table;
    // The user's processes in the order of the system's list.
    std::vector<std::int32_t> m_order;
};

} // namespace quillary
