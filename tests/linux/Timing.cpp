// Prints how long the index of this machine's entries and a reading of running applications take.

#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/FakeWindowSource.h"
#include "tests/linux/LinesLog.h"

#include <QGuiApplication>

#include <cstdio>
#include <ctime>

#include <unistd.h>

namespace {

using namespace quillary;

// Of CPU time, so that other work on the machine doesn't count.
double microseconds(const std::function<void()>& work, int times) {
    const auto begin = std::clock();
    for (int count = 0; count < times; ++count) {
        work();
    }
    return static_cast<double>(std::clock() - begin) * 1e6 / static_cast<double>(CLOCKS_PER_SEC) / times;
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const auto folders = applicationFolders();
    std::size_t count = 0;
    const auto index =
        microseconds([&] { count = EntryIndex(readInstalledEntries(folders).entries).entries().size(); }, 20);
    std::printf("index of %zu entries: %.0f us\n", count, index);

    test::FakeWindowSource source;
    for (std::uint64_t id = 1; id <= 40; ++id) {
        WindowInfo window;
        window.id = id;
        window.windowClass = id % 2 == 0 ? "Thunar" : "Unknown" + std::to_string(id);
        window.pid = ::getpid();
        source.list.push_back(window);
    }
    test::ManualScheduler scheduler;
    test::LinesLog log;
    const LinuxWorkspace workspace(source, scheduler, log);
    const auto first = microseconds([&] { static_cast<void>(workspace.runningApplications()); }, 1);
    std::printf("first reading with 40 windows, index included: %.0f us\n", first);
    const auto later = microseconds([&] { static_cast<void>(workspace.runningApplications()); }, 1000);
    std::printf("later reading with 40 windows: %.1f us\n", later);
    const auto facts = microseconds([] { static_cast<void>(ProcessReader().read(::getpid())); }, 200);
    std::printf("facts of one process: %.1f us\n", facts);
    const auto pinned =
        microseconds([] { static_cast<void>(LinuxSystemDockPreferences().pinnedItems()); }, 1);
    std::printf("pinned items: %.0f us\n", pinned);
    for (const auto& path : LinuxSystemDockPreferences().pinnedItems()) {
        std::printf("  %s (%s)\n", path.c_str(), workspace.displayName(path).c_str());
    }
    return 0;
}
