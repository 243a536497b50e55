// Prints the figure of one application every few seconds, as docks show it. Arguments: the id of the process
// that shows the application's windows, seconds to go on, seconds between samples. Each line: seconds, bytes,
// seconds of a processor used so far, and the ids of the application's processes.

#include "platform/linux/memory/MemorySweep.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

#include <unistd.h>

namespace {

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::fputs("Usage: quillary_memory_figures PID SECONDS INTERVAL\n", stderr);
        return 2;
    }
    const auto pid = std::strtol(argv[1], nullptr, 10);
    const auto end = std::strtod(argv[2], nullptr);
    const auto interval = std::strtod(argv[3], nullptr);
    const quillary::MemorySurroundings surroundings{.processes = quillary::ProcFilesystem("/proc"),
                                                    .user = geteuid(),
                                                    .ownPid = getpid(),
                                                    .ownId = {},
                                                    .entryFolders = {},
                                                    .clock = now,
                                                    .processorTime = processorTime};
    const std::string path = "/application.desktop";
    const quillary::DesktopNow desktop{.entries = {{path, "application.desktop", {}}},
                                       .windows = {{pid, path}}};
    quillary::BusyProcesses busy;
    quillary::ProcessTable table;
    const double begin = now();
    const double used = processorTime();
    for (int round = 0; round * interval <= end; ++round) {
        std::this_thread::sleep_for(std::chrono::duration<double>(begin + round * interval - now()));
        for (const auto& usage : quillary::MemorySweep(surroundings, busy, table).run(desktop)) {
            std::printf("%.2f %llu %.6f", now() - begin, static_cast<unsigned long long>(usage.bytes),
                        processorTime() - used);
            for (const auto process : usage.pids) {
                std::printf(" %d", process);
            }
            std::printf("\n");
            std::fflush(stdout);
        }
    }
    return 0;
}
