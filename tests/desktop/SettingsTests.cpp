#include "tests/desktop/DesktopFixture.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>

namespace quillary::test {

namespace {

const std::vector<QRect> atTheirPlaces{QRect(567, 775, 146, 125), QRect(1767, 675, 146, 125)};

class SettingsTest : public DesktopFixture {
protected:
    void writeTwoItems() {
        home.writeSettings(settingsJson({dockJson(leftKey, {"/a", "/b"}, R"("magnification":"off")"),
                                         dockJson(rightKey, {"/a", "/b"}, R"("magnification":"off")")}));
    }
    QJsonArray items(const std::string& key) {
        return home.dockSettings(key).value(QStringLiteral("items")).toArray();
    }
    void usePropertyList(const std::string& name) {
        const auto data = std::filesystem::path(QUILLARY_DOCK_DATA);
        Home::write(home.path() / "Library/Preferences/com.apple.dock.plist",
                    Home::read(data / (name + ".plist")));
        expected =
            QJsonDocument::fromJson(QByteArray::fromStdString(Home::read(data / (name + ".expected.json"))))
                .array();
        ASSERT_GT(expected.size(), 1);
    }

    QJsonArray expected;
};

} // namespace

TEST_F(SettingsTest, theFirstStartWritesAnEntryForEachScreen) {
    startWithDocks(2);
    const auto settings = home.settings();
    EXPECT_EQ(settings.value(QStringLiteral("hideSystemDock")), QJsonValue(true));
    EXPECT_FALSE(settings.contains(QStringLiteral("savedSystemDock")));
    EXPECT_EQ(settings.value(QStringLiteral("docks")).toArray().size(), 2);
    const QJsonObject defaults{{QStringLiteral("autoHide"), false},
                               {QStringLiteral("bounceOnLaunch"), true},
                               {QStringLiteral("edge"), QStringLiteral("bottom")},
                               {QStringLiteral("enabled"), true},
                               {QStringLiteral("iconSize"), 48},
                               {QStringLiteral("items"), QJsonArray()},
                               {QStringLiteral("magnification"), QStringLiteral("subtle")},
                               {QStringLiteral("screenKey"), QString::fromStdString(leftKey)},
                               {QStringLiteral("screenName"), QStringLiteral("LEFT")},
                               {QStringLiteral("showRunning"), true},
                               {QStringLiteral("style"), QStringLiteral("glass")}};
    EXPECT_EQ(home.dockSettings(leftKey), defaults) << Home::read(home.settingsFile());
    EXPECT_EQ(home.dockSettings(rightKey).value(QStringLiteral("screenName")).toString(),
              QStringLiteral("RIGHT"));
}

TEST_F(SettingsTest, aDamagedFileIsKeptAsideAndTheProgramRuns) {
    const std::string damaged = R"({"docks":[{"screenKey":"272375920","style":"marble"}]})";
    home.writeSettings(damaged);
    startWithDocks(2);
    EXPECT_EQ(Home::read(home.settingsFile().string() + ".broken"), damaged);
    EXPECT_EQ(home.settings().value(QStringLiteral("docks")).toArray().size(), 2);
}

TEST_F(SettingsTest, eachSignalToEndEndsItInOrder) {
    writeTwoItems();
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        startWithDocks(2);
        program.signal(number);
        EXPECT_EQ(program.waitForEnd(), Program::End{0}) << number << "\n" << program.log();
        EXPECT_TRUE(eventually([&] { return docks().empty(); }));
    }
}

TEST_F(SettingsTest, aKilledProgramFindsEverythingAgain) {
    startWithDocks(2);
    const auto seeded = Home::read(home.settingsFile());
    program.signal(SIGKILL);
    ASSERT_EQ(program.waitForEnd(), Program::End{});
    EXPECT_EQ(Home::read(home.settingsFile()), seeded);

    writeTwoItems();
    startWithDocks(2);
    ASSERT_TRUE(standAt(atTheirPlaces));
    const auto before = home.settings();
    program.signal(SIGKILL);
    ASSERT_EQ(program.waitForEnd(), Program::End{});
    startWithDocks(2);
    EXPECT_TRUE(standAt(atTheirPlaces));
    EXPECT_EQ(home.settings(), before);
}

TEST_F(SettingsTest, newScreensStartWithTheItemsOfTheSystemDocksFile) {
    usePropertyList("02");
    display.unplugMonitor("RIGHT");
    startWithDocks(1);
    EXPECT_EQ(items(leftKey), expected);
    // A screen that comes later takes what the file says then.
    const auto first = expected;
    usePropertyList("D01");
    ASSERT_NE(first, expected);
    display.plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
    ASSERT_TRUE(eventually([&] { return docks().size() == 2; }));
    EXPECT_EQ(items(rightKey), expected);
    EXPECT_EQ(items(leftKey), first);
}

TEST_F(SettingsTest, withoutThatFileTheyStartWithTheDesktopsDefaults) {
    std::vector<std::string> paths;
    for (const auto* id : {"files", "web", "terminal", "editor", "org.gnome.Settings"}) {
        const std::string more = id == std::string("terminal") ? "Categories=TerminalEmulator;\n" : "";
        paths.push_back(home.install(id, Qt::red, more));
    }
    Home::write(home.path() / "config/mimeapps.list",
                "[Default Applications]\ninode/directory=files.desktop\nx-scheme-handler/http=web.desktop\n"
                "text/plain=editor.desktop\n");
    startWithDocks(2);
    QJsonArray wanted;
    for (const auto& path : paths) {
        wanted.append(QString::fromStdString(path));
    }
    EXPECT_EQ(items(leftKey), wanted) << Home::read(home.settingsFile());
    EXPECT_EQ(items(rightKey), wanted);
    // Five icons of 48 that grow by 0.35: 365.12 × 141.8.
    EXPECT_TRUE(standAt({QRect(458, 758, 365, 142), QRect(1658, 658, 365, 142)}));
}

} // namespace quillary::test
