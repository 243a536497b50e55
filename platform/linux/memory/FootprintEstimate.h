#pragma once

#include <cstdint>
#include <optional>

namespace quillary {

/// The physical footprint of one process, in bytes: the last exact reading, plus the change since then of its
/// resident memory, a cheap figure in which shared pages count in full.
///
/// Memory that a process allocates or frees between exact readings is assumed not to be shared, which is true
/// of nearly all of it.
class FootprintEstimate {
public:
    /// Resident memory, shared pages in full (`ProcTexts::resident`).
    void setResident(std::uint64_t bytes) { m_resident = bytes; }
    [[nodiscard]] std::uint64_t resident() const { return m_resident; }
    /// Sets an exact reading made at the time `now` (seconds), after `setResident` with the figure of the
    /// same time. Nothing: the process may not be read exactly, and its resident memory stands for the
    /// footprint. `family` is the sum of what all processes of the application have allocated and freed so
    /// far.
    void setExact(std::optional<std::uint64_t> bytes, double now, std::uint64_t family);

    [[nodiscard]] std::uint64_t bytes() const;
    /// How far off `bytes` may be: all of it before the first exact reading. Afterwards the change since
    /// then, plus as much of what the process shares as others of its family may have stopped sharing, plus 5
    /// % a minute.
    [[nodiscard]] double doubt(double now, std::uint64_t family) const;

private:
    struct Reading {
        std::optional<std::uint64_t> exact;
        std::uint64_t resident = 0;
        double moment = 0;
        std::uint64_t family = 0;
    };

    std::uint64_t m_resident = 0;
    std::optional<Reading> m_reading;
};

} // namespace quillary
