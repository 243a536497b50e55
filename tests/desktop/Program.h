#pragma once

#include "tests/desktop/Home.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary::test {

/// The real program, as a process on the display and in the home of the test.
class Program {
public:
    explicit Program(const Home& user) : m_home(user) {}
    /// Kills the program when it still runs.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// How a process ended.
    struct End {
        /// What it returned; absent when a signal ended it.
        std::optional<int> status;
        bool operator==(const End&) const = default;
    };

    /// Starts it with these arguments; `environment` holds further "NAME=value".
    void start(const std::vector<std::string>& environment = {},
               const std::vector<std::string>& arguments = {});
    [[nodiscard]] pid_t process() const { return m_pid; }
    [[nodiscard]] bool isRunning();
    void signal(int number) const;
    /// Waits for its end; nothing when it still runs at the deadline.
    std::optional<End> waitForEnd();
    /// Ends it by its normal path; whether it ended so.
    bool quit();

    /// What it wrote to its two outputs.
    [[nodiscard]] std::string log() const;
    /// Open file descriptors.
    [[nodiscard]] std::size_t descriptors() const;
    /// Heap and stacks, KiB: what no file backs. Private pages would also count those of libraries that other
    /// programs just ceased to share. Negative when it cannot be read.
    [[nodiscard]] long anonymousMemory() const;

private:
    void reap();

    const Home& m_home;
    pid_t m_pid = 0;
    std::optional<End> m_ended;
};

} // namespace quillary::test
