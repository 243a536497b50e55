#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/systemdock/DesktopDock.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/systemdock/GnomeSchemaCheck.h"
#include "tests/linux/systemdock/HiderRun.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

class GnomeExtensionTest : public WorldTest {
protected:
    void checkFoundIn(const std::filesystem::path& extension) {
        writeFile(extension / "schemas/gschemas.compiled",
                  readFile(QUILLARY_DOCK_SCHEMAS "/gschemas.compiled"));
        const auto dock = DesktopDock::of(CurrentDesktop("ubuntu:GNOME"), folder, log);
        ASSERT_NE(dock, nullptr);
        HiderRun run(*dock);
        EXPECT_EQ(run.hide(), away);
        EXPECT_EQ(dock->read(), away);
        EXPECT_TRUE(std::filesystem::exists(folder / "system-dock-gnome.json"));
        EXPECT_EQ(run.show(), (DockPrefs{std::nullopt, std::nullopt}));
        EXPECT_EQ(dock->read(), (DockPrefs{std::nullopt, std::nullopt}));
    }

    const std::filesystem::path folder = World::config() / "Quillary";
    LinesLog log;
};

TEST_F(GnomeExtensionTest, theUsersExtensionBringsItsSchema) {
    checkFoundIn(World::userData() / "gnome-shell/extensions/dash-to-dock@micxgx.gmail.com");
}

TEST_F(GnomeExtensionTest, theSystemsExtensionBringsItsSchema) {
    checkFoundIn(World::systemData() / "gnome-shell/extensions/ubuntu-dock@ubuntu.com");
}

TEST_F(GnomeExtensionTest, damagedSchemasAreNone) {
    const auto file =
        World::userData() / "gnome-shell/extensions/dash-to-dock@micxgx.gmail.com/schemas/gschemas.compiled";
    auto bytes = readFile(QUILLARY_DOCK_SCHEMAS "/gschemas.compiled");
    writeFile(file, bytes.substr(0, bytes.size() / 2));
    EXPECT_EQ(DesktopDock::of(CurrentDesktop("GNOME"), folder, log), nullptr);
    writeFile(file, "GVariant");
    EXPECT_EQ(DesktopDock::of(CurrentDesktop("GNOME"), folder, log), nullptr);
}

} // namespace

} // namespace quillary::test
