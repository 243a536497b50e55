#include "platform/linux/memory/MemorySweep.h"
#include "tests/linux/memory/ProcTree.h"

#include <benchmark/benchmark.h>

#include <csignal>
#include <cstdlib>
#include <ctime>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary {
namespace {

constexpr double interval = 4;
const std::string path = "/application.desktop";

double processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Samples taken four seconds apart by the clock that is passed to them. "core" is the share of one core.
void sampleAgainAndAgain(benchmark::State& state, const std::filesystem::path& proc, std::int32_t window) {
    double now = 0;
    const MemorySurroundings surroundings{.processes = ProcFilesystem(proc),
                                          .user = ::geteuid(),
                                          .ownPid = static_cast<std::int32_t>(::getpid()),
                                          .ownId = {},
                                          .entryFolders = {},
                                          .clock = [&now] { return now; },
                                          .processorTime = processorTime};
    const DesktopNow desktop{.entries = {{path, "application.desktop", {}}}, .windows = {{window, path}}};
    BusyProcesses busy;
    ProcessTable table;
    std::size_t counted = 0;
    // What every start has to pay once.
    static_cast<void>(MemorySweep(surroundings, busy, table).run(desktop));
    const double begin = processorTime();
    for (auto _ : state) {
        now += interval;
        const auto usages = MemorySweep(surroundings, busy, table).run(desktop);
        counted = usages.empty() ? 0 : usages.front().pids.size();
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["core"] = (processorTime() - begin) / (rounds * interval);
    state.counters["processes"] = static_cast<double>(table.records.size());
    state.counters["counted"] = static_cast<double>(counted);
}

void sampleOfMadeUpProcesses(benchmark::State& state) {
    const test::ProcTree tree;
    for (std::int32_t pid = 1000; pid < 1000 + state.range(0); ++pid) {
        // One in twenty belongs to the application.
        tree.put({.pid = pid,
                  .parent = pid % 20 == 0 && pid != 1000 ? 1000 : 1,
                  .executable = "/usr/bin/program",
                  .anonymous = 50'000,
                  .exact = test::ProcEntry::Exact{.anonymous = 40'000}});
    }
    sampleAgainAndAgain(state, tree.proc(), 1000);
}
BENCHMARK(sampleOfMadeUpProcesses)->Arg(400)->Arg(4000)->Unit(benchmark::kMillisecond);

/// A parent with children of 1 MiB each, all of one application.
class Family {
public:
    explicit Family(std::int64_t children) {
        int ready[2] = {};
        if (::pipe(ready) != 0) {
            std::abort();
        }
        pid = ::fork();
        if (pid == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            for (std::int64_t child = 0; child < children; ++child) {
                if (::fork() == 0) {
                    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
                    use();
                    wait(ready[1]);
                }
            }
            wait(ready[1]);
        }
        char byte = 0;
        for (std::int64_t child = 0; child <= children; ++child) {
            if (::read(ready[0], &byte, 1) != 1) {
                std::abort();
            }
        }
        ::close(ready[0]);
        ::close(ready[1]);
    }
    Family(const Family&) = delete;
    Family& operator=(const Family&) = delete;
    ~Family() {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }

    pid_t pid;

private:
    static void use() {
        constexpr std::size_t size = std::size_t{1} << 20U;
        auto* memory = static_cast<char*>(
            ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        for (std::size_t offset = 0; offset < size; offset += 4096) {
            memory[offset] = 1;
        }
    }
    [[noreturn]] static void wait(int ready) {
        if (::write(ready, "r", 1) == 1) {
            ::pause();
        }
        ::_exit(0);
    }
};

void sampleOfRealProcesses(benchmark::State& state) {
    const Family family(state.range(0));
    sampleAgainAndAgain(state, "/proc", family.pid);
}
BENCHMARK(sampleOfRealProcesses)->Arg(400)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quillary
