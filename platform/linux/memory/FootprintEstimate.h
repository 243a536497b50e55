#pragma once

#include <cstdint>
#include <optional>

namespace quillary {

/// The physical footprint of one process, followed between rare exact readings by a cheap figure in which
/// shared pages count in full. Bytes.
///
/// What a process takes on since the last exact reading is taken for its own alone, as nearly all fresh
/// memory is; what it gives up, for parts of all it has.
class FootprintEstimate {
public:
    /// The cheap figure of now.
    void setUnshared(std::uint64_t bytes) { m_unshared = bytes; }
    /// An exact reading at this moment (seconds), to be set after the cheap figure of the same moment.
    /// Nothing: the process lets nobody read it; then the cheap figure stands.
    void setExact(std::optional<std::uint64_t> bytes, double now);

    [[nodiscard]] std::uint64_t bytes() const;
    /// How far off the figure may be: all of it before the first exact reading; then what changed since, and
    /// a little more as time passes, because others may begin or cease to share.
    [[nodiscard]] double doubt(double now) const;

private:
    struct Reading {
        std::optional<std::uint64_t> exact;
        std::uint64_t unshared = 0;
        double moment = 0;
    };

    std::uint64_t m_unshared = 0;
    std::optional<Reading> m_reading;
};

} // namespace quillary
