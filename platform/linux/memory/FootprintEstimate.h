#pragma once

#include <cstdint>
#include <optional>

namespace quillary {

/// The physical footprint of one process, followed between rare exact readings by a cheap figure in which
/// shared pages count in full. Bytes.
///
/// What a process takes on or gives up since the last exact reading is taken for its own alone, as nearly all
/// such memory is.
class FootprintEstimate {
public:
    /// The cheap figure of now.
    void setResident(std::uint64_t bytes) { m_resident = bytes; }
    [[nodiscard]] std::uint64_t resident() const { return m_resident; }
    /// An exact reading at this moment (seconds), to be set after the cheap figure of the same moment.
    /// Nothing: the process lets nobody read it; then the cheap figure stands. `family` is how much the
    /// processes of the same application have taken on and given up so far, all together.
    void setExact(std::optional<std::uint64_t> bytes, double now, std::uint64_t family);

    [[nodiscard]] std::uint64_t bytes() const;
    /// How far off the figure may be: all of it before the first exact reading; then what changed since, as
    /// much of what it shares as others of its family may have given up, and a little more as time passes.
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
