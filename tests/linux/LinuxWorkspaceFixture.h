#pragma once

#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/FakeWindowSource.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillary::test {

/// A workspace of two installed applications, GIMP and Files, on windows that the test lists.
class LinuxWorkspaceTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        gimp =
            install("gimp.desktop", "Name=GIMP\nName[de]=Bildbearbeitung\nExec=gimp %U\nIcon=no-such-icon");
        files = install("org.test.Files.desktop", "Name=Files\nExec=test-files %U");
        workspace = std::make_unique<LinuxWorkspace>(source, entries, scheduler, log);
        QObject::connect(workspace.get(), &Workspace::applicationLaunched,
                         [this] { told.emplace_back("launched"); });
        QObject::connect(workspace.get(), &Workspace::applicationTerminated,
                         [this] { told.emplace_back("terminated"); });
        QObject::connect(workspace.get(), &Workspace::applicationActivated,
                         [this] { told.emplace_back("activated"); });
    }

    using Strings = std::vector<std::string>;

    Strings paths() {
        Strings result;
        for (const auto& application : workspace->runningApplications()) {
            result.push_back(application.bundlePath.value_or("none"));
        }
        return result;
    }

    Strings take() { return std::exchange(told, {}); }

    std::string gimp;
    std::string files;
    FakeWindowSource source;
    ManualScheduler scheduler;
    DesktopEntries entries{scheduler};
    LinesLog log;
    std::unique_ptr<LinuxWorkspace> workspace;
    Strings told;
};

} // namespace quillary::test
