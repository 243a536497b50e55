#include "platform/linux/systemdock/AutohidingPanels.h"

#include "platform/SystemLog.h"

#include <algorithm>
#include <utility>

namespace quillary {

AutohidingPanels::AutohidingPanels(std::unique_ptr<PanelModes> panels, SavedValuesFile file, SystemLog& log)
    : m_panels(std::move(panels)), m_file(std::move(file)), m_log(log) {}

DockPrefs AutohidingPanels::read() {
    const auto now = m_panels->read();
    m_isReachable = now.has_value();
    if (!m_isReachable) {
        logFailure("read", now.error());
    }
    if (!m_isReachable || now->empty()) {
        return DockPrefs::hidden;
    }
    const auto saved = m_file.load();
    if (isHidden(*now, saved)) {
        return DockPrefs::hidden;
    }
    if (saved.state != SavedValuesFile::State::absent) {
        m_file.remove();
    }
    return ownValues(*now);
}

void AutohidingPanels::write(const DockPrefs& prefs) {
    // Another attempt would only block the program for another second.
    if (!m_isReachable) {
        return;
    }
    const auto now = m_panels->read();
    if (!now) {
        logFailure("read", now.error());
    } else if (now->empty()) {
        // The desktop may come back, with its panels as they were: the saved values stay.
        return;
    } else if (prefs == DockPrefs::hidden) {
        hide(*now);
    } else {
        bringBack(*now, prefs);
    }
}

bool AutohidingPanels::isHidden(const SavedValues& now, const SavedValuesFile::Content& saved) const {
    if (saved.state == SavedValuesFile::State::absent) {
        return false;
    }
    const auto isAway = [this](const auto& panel) { return m_panels->isAway(panel.second); };
    if (saved.state == SavedValuesFile::State::damaged) {
        return std::ranges::any_of(now, isAway);
    }
    // Panels that the user hides himself do not indicate whether the program has hidden the others.
    const bool allWereAway = std::ranges::all_of(saved.values, isAway);
    return std::ranges::any_of(now, [&](const auto& panel) {
        const auto own = saved.values.find(panel.first);
        return own != saved.values.end() && isAway(panel) && (allWereAway || !isAway(*own));
    });
}

DockPrefs AutohidingPanels::ownValues(const SavedValues& now) const {
    if (std::ranges::none_of(now, [](const auto& panel) { return panel.second.has_value(); })) {
        return {};
    }
    const bool all =
        std::ranges::all_of(now, [this](const auto& panel) { return m_panels->isAway(panel.second); });
    return {.autohide = all, .delay = std::nullopt};
}

SavedValues AutohidingPanels::toPutAside(const SavedValues& now) const {
    const auto saved = m_file.load();
    auto values = now;
    if (saved.state == SavedValuesFile::State::valid && isHidden(now, saved)) {
        for (auto& [id, mode] : values) {
            const auto own = saved.values.find(id);
            if (own != saved.values.end() && m_panels->isAway(mode)) {
                mode = own->second;
            }
        }
    }
    return values;
}

void AutohidingPanels::hide(const SavedValues& now) {
    if (const auto stored = m_file.store(toPutAside(now)); !stored) {
        logFailure("hide", stored.error());
        return;
    }
    SavedValues changes;
    for (const auto& [id, mode] : now) {
        if (!m_panels->isAway(mode)) {
            changes.emplace(id, m_panels->awayFrom(mode));
        }
    }
    if (const auto written = m_panels->write(changes); !written) {
        logFailure("hide", written.error());
    }
}

void AutohidingPanels::bringBack(const SavedValues& now, const DockPrefs& prefs) {
    const auto saved = m_file.load();
    const auto changes =
        saved.state == SavedValuesFile::State::valid ? remembered(now, saved.values) : chosen(now, prefs);
    if (const auto written = m_panels->write(changes); !written) {
        // The saved values stay for the next attempt.
        logFailure("bring back", written.error());
        return;
    }
    m_file.remove();
}

SavedValues AutohidingPanels::remembered(const SavedValues& now, const SavedValues& saved) const {
    SavedValues changes;
    for (const auto& [id, mode] : now) {
        const auto own = saved.find(id);
        if (own == saved.end() || !m_panels->isAway(mode) || own->second == mode) {
            continue;
        }
        const bool isUsable = !own->second || m_panels->isMode(*own->second);
        changes.emplace(id, isUsable ? own->second : m_panels->shown());
    }
    return changes;
}

SavedValues AutohidingPanels::chosen(const SavedValues& now, const DockPrefs& prefs) const {
    const bool wanted = prefs.autohide.value_or(false);
    SavedValues changes;
    for (const auto& [id, mode] : now) {
        if (m_panels->isAway(mode) != wanted) {
            changes.emplace(id, wanted ? m_panels->awayFrom(mode) : m_panels->shown());
        }
    }
    return changes;
}

void AutohidingPanels::logFailure(const std::string& what, const std::string& error) {
    m_log.write("Quillary: could not " + what + " " + m_panels->name() + ": " + error);
}

} // namespace quillary
