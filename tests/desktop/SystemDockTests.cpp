#include "tests/desktop/DesktopFixture.h"
#include "tests/surroundings/Surroundings.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace quillary::test {

namespace {

const QColor panelColour(255, 0, 255);

// Two panels on the left screen, along the lower and the upper edge; the first is always seen because it has
// no mode, the second because it says so.
constexpr const char* channel = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <value type="int" value="2"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=10;x=640;y=880"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="40"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="background-rgba" type="array">
        <value type="double" value="1"/><value type="double" value="0"/>
        <value type="double" value="1"/><value type="double" value="1"/>
      </property>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
    <property name="panel-2" type="empty">
      <property name="position" type="string" value="p=9;x=640;y=20"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="autohide-behavior" type="uint" value="0"/>
      <property name="background-style" type="uint" value="1"/>
      <property name="background-rgba" type="array">
        <value type="double" value="1"/><value type="double" value="0"/>
        <value type="double" value="1"/><value type="double" value="1"/>
      </property>
      <property name="plugin-ids" type="array"><value type="int" value="2"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator"/>
    <property name="plugin-2" type="string" value="separator"/>
  </property>
</channel>)";

constexpr const char* busConfiguration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%run/bus</listen>
  <servicedir>%run/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>)";

/// A session of Xfce as far as its panels go: they are real, as is the keeper of their settings.
class SystemDockTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        const std::vector<std::string> items{home.install("red", QColor(220, 20, 20)), "/b"};
        writeSettings(items, "");
        Home::write(home.path() / "config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", channel);
        startBus();
        ASSERT_NE(display.start(Surroundings::withMachineData({"xfce4-panel", "--disable-wm-check"})), 0);
        ASSERT_TRUE(eventually([this] { return areSeen(); })) << seen();
    }
    void TearDown() override { setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/session-bus", 1); }

    void writeSettings(const std::vector<std::string>& items, const std::string& more) {
        const std::string options = R"("magnification":"off")";
        auto json = settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)});
        home.writeSettings(json.insert(1, more));
    }
    /// A bus on which nothing but the keeper of settings can be started.
    void startBus() {
        const auto run = (home.path() / "run").string();
        std::filesystem::create_directories(home.path() / "run/services");
        std::filesystem::copy_file("/usr/share/dbus-1/services/org.xfce.Xfconf.service",
                                   home.path() / "run/services/org.xfce.Xfconf.service");
        std::string configuration = busConfiguration;
        for (auto at = configuration.find("%run"); at != std::string::npos; at = configuration.find("%run")) {
            configuration.replace(at, 4, run);
        }
        Home::write(home.path() / "run/bus.conf", configuration);
        ASSERT_NE(display.start({"dbus-daemon", "--nofork", "--config-file=" + run + "/bus.conf"}), 0);
        ASSERT_TRUE(eventually([&] { return std::filesystem::exists(run + "/bus"); }));
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + run + "/bus").c_str(), 1);
    }
    void start() {
        program.start({"XDG_CURRENT_DESKTOP=XFCE"});
        ASSERT_TRUE(eventually([this] { return docks().size() == 2; })) << program.log();
    }

    /// What of the panels is seen at the lower and at the upper edge.
    [[nodiscard]] QRect lower() const { return colourBox(panelColour, QRect(0, 700, 1280, 200)); }
    [[nodiscard]] QRect upper() const { return colourBox(panelColour, QRect(0, 0, 1280, 200)); }
    [[nodiscard]] std::string seen() const { return testing::PrintToString(std::vector{lower(), upper()}); }
    [[nodiscard]] bool areSeen() const { return lower().height() >= 40 && upper().height() >= 30; }
    /// But for the edges that the pointer finds them by.
    [[nodiscard]] bool areAway() const { return lower().height() <= 4 && upper().height() <= 4; }

    /// What xfconf holds for a panel, as its own program prints it.
    [[nodiscard]] std::string mode(int panel) {
        const auto file = home.path() / "mode";
        const auto property = "/panels/panel-" + std::to_string(panel) + "/autohide-behavior";
        display.run(
            {"sh", "-c", R"(xfconf-query -c xfce4-panel -p "$0" >"$1" 2>&1)", property, file.string()});
        auto text = Home::read(file);
        text.erase(text.find_last_not_of('\n') + 1);
        return text.find("does not exist") != std::string::npos ? "none" : text;
    }
    [[nodiscard]] bool isPutAside() const {
        return std::filesystem::exists(home.path() / "config/Quillary/system-dock-xfce.json");
    }

    const std::vector<QRect> atTheirPlaces{QRect(567, 775, 146, 125), QRect(1767, 675, 146, 125)};
};

} // namespace

TEST_F(SystemDockTest, theDesktopsPanelsGoWhileTheProgramRuns) {
    const QRect lowerBefore = lower();
    const QRect upperBefore = upper();
    start();
    EXPECT_TRUE(eventually([this] { return areAway(); })) << seen() << program.log();
    EXPECT_EQ(mode(1), "2");
    EXPECT_EQ(mode(2), "2");
    EXPECT_TRUE(isPutAside());
    EXPECT_EQ(home.settings().value(QStringLiteral("savedSystemDock")).toObject(),
              (QJsonObject{{QStringLiteral("autohide"), false}}));
    EXPECT_TRUE(standAt(atTheirPlaces)) << "the panels' room is free";

    EXPECT_TRUE(program.quit());
    EXPECT_EQ(mode(1), "none");
    EXPECT_EQ(mode(2), "0");
    EXPECT_TRUE(eventually([&] { return lower() == lowerBefore && upper() == upperBefore; })) << seen();
    EXPECT_FALSE(isPutAside());
    EXPECT_FALSE(home.settings().contains(QStringLiteral("savedSystemDock")));
}

TEST_F(SystemDockTest, theDesktopsPanelsComeBackAfterACrashAndARestart) {
    start();
    ASSERT_TRUE(eventually([this] { return areAway(); })) << seen();
    program.signal(SIGKILL);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(mode(1), "2");
    EXPECT_TRUE(isPutAside());

    start();
    EXPECT_TRUE(standAt(atTheirPlaces));
    EXPECT_TRUE(areAway()) << seen();
    EXPECT_TRUE(program.quit());
    EXPECT_EQ(mode(1), "none");
    EXPECT_EQ(mode(2), "0");
    EXPECT_TRUE(eventually([this] { return areSeen(); })) << seen();
}

TEST_F(SystemDockTest, aPanelShownByHandMeanwhileKeepsItsMode) {
    start();
    ASSERT_TRUE(eventually([this] { return areAway(); })) << seen();
    for (const char* panel : {"1", "2"}) {
        ASSERT_EQ(display.run({"xfconf-query", "-c", "xfce4-panel", "-p",
                               std::string("/panels/panel-") + panel + "/autohide-behavior", "-s", "0"}),
                  0);
    }
    ASSERT_TRUE(eventually([this] { return areSeen(); })) << seen();
    EXPECT_TRUE(program.quit());
    EXPECT_EQ(mode(1), "0");
    EXPECT_EQ(mode(2), "0");
    EXPECT_FALSE(isPutAside());
}

TEST_F(SystemDockTest, thePanelsStayWhenTheUserWantsThem) {
    writeSettings({"/b", "/c"}, R"("hideSystemDock":false,)");
    start();
    // Longer than a panel needs to go.
    VirtualDisplay::runFor(3000);
    EXPECT_TRUE(areSeen()) << seen();
    EXPECT_EQ(mode(1), "none");
    EXPECT_TRUE(program.quit());
    EXPECT_EQ(mode(2), "0");
}

} // namespace quillary::test
