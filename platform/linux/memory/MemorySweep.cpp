#include "platform/linux/memory/MemorySweep.h"

#include "core/AppMemoryGrouping.h"
#include "platform/linux/memory/ApplicationOwners.h"
#include "platform/linux/windows/UnitName.h"

#include <algorithm>

namespace quillary {

namespace {

// Just after they started, programs replace themselves by others (shells, launchers) and are moved to control
// groups. Later replacements show in the name.
constexpr unsigned sightingsUntilSettled = 3;
// A change of memory that leaves the number of pages the same is noticed after this many samples.
constexpr std::uint64_t samplesBetweenCheapReadings = 8;
// The user sees whole mebibytes.
constexpr double doubtWorthReading = 1024.0 * 1024.0;

// Flatpak ids have dots, as D-Bus names do. Snap names have none.
bool isFlatpak(const std::string& sandbox) {
    return sandbox.find('.') != std::string::npos;
}

bool comesFromFlatpak(const ProcessTraits& traits, const std::string& id) {
    const auto unit = unitApplication(traits.group);
    return traits.sandbox == id || (unit.sandboxed && unit.id == id);
}

// A flatpak has its own process ids, counted from 1: the pid that its window gives may be that of an
// unrelated process outside. Snaps have the ids of the host.
bool mayShow(const DesktopNow& desktop, const std::string& path, const ProcessTraits& traits) {
    const auto entry = std::ranges::find(desktop.entries, path, &DesktopNow::Entry::path);
    return entry == desktop.entries.end() || !isFlatpak(entry->sandbox) ||
           comesFromFlatpak(traits, entry->sandbox);
}

} // namespace

MemorySweep::MemorySweep(const MemorySurroundings& surroundings, BusyProcesses& busy, ProcessTable& table)
    : m_surroundings(surroundings), m_busy(busy), m_table(table) {}

std::vector<AppUsage> MemorySweep::run(const DesktopNow& desktop) {
    const auto processorTime = m_surroundings.processorTime();
    m_table.budget.begin(m_surroundings.clock());
    ++m_table.samples;
    survey();
    readTraits();
    noteWindows(desktop);
    EntryPaths paths(m_surroundings.entryFolders, desktop.entries);
    auto owned = attribute(paths);
    readCheaply(owned);
    m_table.budget.takeNecessary(m_surroundings.processorTime() - processorTime);
    readExactly(owned);
    std::vector<ProcessSample> samples;
    samples.reserve(owned.size());
    for (const auto& process : owned) {
        samples.push_back({.pid = process.pid,
                           .path = process.record->application,
                           .bytes = process.record->estimate.bytes()});
    }
    return AppMemoryGrouping::sum(samples, paths.byId(m_surroundings.ownId));
}

void MemorySweep::survey() {
    std::unordered_map<std::int32_t, Record> met;
    met.reserve(m_table.records.size());
    for (const auto pid : m_surroundings.processes.pids()) {
        if (m_surroundings.processes.owner(pid) != m_surroundings.user) {
            continue;
        }
        auto stat = m_surroundings.processes.stat(pid);
        if (!stat) {
            continue;
        }
        Record record;
        const auto known = m_table.records.find(pid);
        if (known != m_table.records.end() && known->second.stat.startTime == stat->startTime) {
            record = std::move(known->second);
            m_table.records.erase(known);
            // The process runs another program now, which may belong to another application.
            record.sightings = record.stat.command == stat->command ? record.sightings : 0;
        }
        record.stat = std::move(*stat);
        ++record.sightings;
        if (met.emplace(pid, std::move(record)).second) {
            m_order.push_back(pid);
        }
    }
    for (const auto& [pid, gone] : m_table.records) {
        m_table.families[gone.application] += gone.estimate.resident();
    }
    m_table.records = std::move(met);
}

void MemorySweep::readTraits() {
    for (const auto pid : m_order) {
        auto& record = m_table.records.at(pid);
        if (record.traits && record.sightings > sightingsUntilSettled) {
            continue;
        }
        m_busy.tryReading({pid, record.stat.startTime}, [&] {
            auto traits = traitsOf(m_surroundings.processes.facts(pid));
            // Otherwise the id was given to another process meanwhile, and the traits are that one's.
            if (isStill(pid, record)) {
                record.traits = std::make_shared<const ProcessTraits>(std::move(traits));
            }
        });
    }
}

void MemorySweep::noteWindows(const DesktopNow& desktop) {
    // Of several applications in one process the first one counts, so it is set last.
    for (auto window = desktop.windows.rbegin(); window != desktop.windows.rend(); ++window) {
        const auto place = window->pid > INT32_MAX
                               ? m_table.records.end()
                               : m_table.records.find(static_cast<std::int32_t>(window->pid));
        if (place != m_table.records.end() && place->second.traits &&
            mayShow(desktop, window->path, *place->second.traits)) {
            place->second.shown = window->path;
        }
    }
}

std::vector<MemorySweep::Owned> MemorySweep::attribute(EntryPaths& paths) {
    std::vector<ApplicationOwners::Process> processes;
    processes.reserve(m_order.size());
    for (const auto pid : m_order) {
        const auto& record = m_table.records.at(pid);
        if (record.traits) {
            processes.push_back({.pid = pid,
                                 .parent = record.stat.parent,
                                 .traits = record.traits.get(),
                                 .shown = record.shown});
        }
    }
    const auto parentOf = [this](std::int32_t pid) {
        const auto stat = m_surroundings.processes.stat(pid);
        return stat ? std::optional(stat->parent) : std::nullopt;
    };
    const auto namespacesOf = [this](std::int32_t pid) { return m_surroundings.processes.namespaces(pid); };
    ApplicationOwners owners(std::move(processes), m_surroundings.ownPid, paths, parentOf, namespacesOf);
    std::vector<Owned> owned;
    for (const auto pid : m_order) {
        auto& record = m_table.records.at(pid);
        record.application = owners.ownerOf(pid);
        if (!record.application.empty()) {
            owned.push_back({pid, &record});
        }
    }
    return owned;
}

void MemorySweep::readCheaply(std::vector<Owned>& owned) {
    std::erase_if(owned, [this](const Owned& process) {
        auto& record = *process.record;
        const auto turn = m_table.samples + static_cast<std::uint64_t>(process.pid);
        const bool isDue = record.sightings == 1 || record.pagesThen != record.stat.residentPages ||
                           turn % samplesBetweenCheapReadings == 0;
        if (!isDue) {
            return false;
        }
        const auto resident = m_surroundings.processes.resident(process.pid).value_or(0);
        if (!isStill(process.pid, record)) {
            return true;
        }
        record.pagesThen = record.stat.residentPages;
        const auto before = record.estimate.resident();
        m_table.families[record.application] += std::max(before, resident) - std::min(before, resident);
        record.estimate.setResident(resident);
        return false;
    });
}

void MemorySweep::readExactly(std::vector<Owned>& owned) {
    const auto now = m_surroundings.clock();
    std::vector<std::pair<double, const Owned*>> doubtful;
    for (const auto& process : owned) {
        const auto& record = *process.record;
        const auto doubt = record.estimate.doubt(now, m_table.families[record.application]);
        if (doubt >= doubtWorthReading) {
            doubtful.emplace_back(doubt, &process);
        }
    }
    std::ranges::sort(doubtful, std::greater(), &std::pair<double, const Owned*>::first);
    for (const auto& [doubt, process] : doubtful) {
        if (!m_table.budget.isLeft()) {
            break;
        }
        const auto begin = m_surroundings.processorTime();
        auto& record = *process->record;
        m_busy.tryReading({process->pid, record.stat.startTime}, [&, pid = process->pid] {
            const auto resident = m_surroundings.processes.resident(pid);
            const auto exact = m_surroundings.processes.footprint(pid);
            if (resident && isStill(pid, record)) {
                record.estimate.setResident(*resident);
                record.estimate.setExact(exact, now, m_table.families[record.application]);
            }
        });
        m_table.budget.take(m_surroundings.processorTime() - begin);
    }
}

bool MemorySweep::isStill(std::int32_t pid, const Record& record) const {
    const auto stat = m_surroundings.processes.stat(pid);
    return stat && stat->startTime == record.stat.startTime;
}

} // namespace quillary
