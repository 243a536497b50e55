#pragma once

#include "core/MemoryStats.h"
#include "core/RamBadge.h"

#include <QObject>

#include <cstdint>
#include <map>
#include <string>

namespace quillary {

/// The latest memory figures of the machine and of each application, and what they mean for a dock's icons.
///
/// Nothing is sampled yet: `stats` stays zero and `byApp` empty, so that no badge and no figure is ever
/// shown.
class MemoryMonitor : public QObject {
    Q_OBJECT

public:
    /// Bytes by path of the application.
    using ByApp = std::map<std::string, std::uint64_t, std::less<>>;

    [[nodiscard]] const MemoryStats& stats() const { return machine; }
    [[nodiscard]] const ByApp& byApp() const { return applications; }
    [[nodiscard]] bool running() const { return on; }

    /// Takes the result of a sample: what differs from the last one is published; all of it is dropped while
    /// the monitor is off.
    void publish(const MemoryStats& stats, ByApp byApp);
    /// Switches sampling on or off; off forgets the figures of the applications.
    void setActive(bool active);
    /// The badge of the application at exactly this path; none when it has no figure.
    [[nodiscard]] RamBadge badge(std::string_view path) const;

Q_SIGNALS:
    void statsChanged();
    void byAppChanged();

private:
    MemoryStats machine;
    ByApp applications;
    bool on = false;
};

} // namespace quillary
