#pragma once

#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/DockPanel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "tests/fake/FakePlatform.h"

#include <QObject>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillary::test {

inline const QRectF leftFrame(0, 0, 1280, 900);
inline const QRectF rightFrame(1280, 0, 1120, 800);
inline const std::string leftKey = "KEY-LEFT";
inline const std::string rightKey = "KEY-RIGHT";

/// The manager on a fake system with one screen, LEFT, 1280 × 900.
class Desktop : public testing::Test {
protected:
    Desktop() { platform.screens().connected = {screenNamed("LEFT", leftFrame)}; }

    void start() { manager = std::make_unique<DockManager>(platform); }
    /// Lets what is planned for the next turn of the loop happen.
    void turn() { platform.scheduler().advance(0); }
    /// Starts with LEFT's dock pinned to these, shown and at rest.
    void startWith(std::vector<std::string> items) {
        platform.systemDock().pinned = std::move(items);
        start();
        platform.scheduler().advance(2);
    }

    DockModel& model(std::size_t index = 0) const { return *manager->models().at(index); }
    DockPanel& panel(const std::string& key = leftKey) const { return *manager->panel(key); }
    FakePanelWindow& window(std::size_t index = 0) const { return *platform.windows.at(index); }
    void configure(const std::function<void(DockConfig&)>& change, const std::string& key = leftKey) const {
        manager->update(key, change);
    }
    Settings stored() const { return SettingsStore(manager->settingsURL).load(); }

    FakePlatform platform;
    std::unique_ptr<DockManager> manager;
};

/// How often a signal was emitted.
template<typename Sender, typename Signal>
class Count {
public:
    Count(const Sender* sender, Signal signal) {
        QObject::connect(sender, signal, &m_context, [this] { ++times; });
    }
    int times = 0;

private:
    QObject m_context;
};

} // namespace quillary::test
