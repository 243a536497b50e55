#include "platform/linux/entries/ProgramName.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

struct Case {
    std::vector<std::string> arguments;
    std::string name;
};

TEST(ProgramName, commandLinesGiveTheProgramThatTheyRun) {
    const std::vector<Case> cases = {
        {{"/usr/bin/gimp-2.10", "a.png"}, "gimp-2.10"},
        {{"env", "BAMF_HINT=x", "-u", "DISPLAY", "/usr/bin/foo"}, "foo"},
        {{"nice", "-n", "5", "foo"}, "foo"},
        {{"pkexec", "synaptic"}, "synaptic"},
        {{"/opt/idea/bin/idea.sh", "%f"}, "idea"},
        {{"python3", "/usr/bin/terminator"}, "terminator"},
        {{"/usr/bin/python3.11", "-m", "meld"}, "meld"},
        // A module has no folder that could name it, so that a name which many share stands.
        {{"python3", "-m", "app"}, "app"},
        {{"sh", "-m", "/usr/games/doom.sh"}, "doom"},
        {{"python3", "-Es", "/usr/share/solaar/main.py"}, "solaar"},
        {{"/usr/bin/python3"}, ""},
        {{"python3", "-c", "print()"}, ""},
        {{"sh", "-c", "exec foo"}, ""},
        {{"/bin/sh", "/usr/games/doom.sh"}, "doom"},
        {{"java", "-Xmx1g", "-cp", "a.jar:b.jar", "com.example.Editor"}, "Editor"},
        {{"java", "-jar", "/opt/freecol/FreeCol.jar"}, "FreeCol"},
        {{"java", "com.example.Main"}, ""},
        {{"wine", "start", "/unix", "/home/me/.wine/drive_c/Notepad++.exe"}, "notepad++.exe"},
        {{"env", "WINEPREFIX=/home/me/.wine", "wine", "C:\\\\windows\\\\Foo.lnk"}, "foo.exe"},
        {{"/usr/lib/electron22/electron", "/usr/lib/obsidian/app.asar"}, "obsidian"},
        {{"flatpak", "run", "org.gimp.GIMP"}, ""},
        {{"gjs", "/usr/share/org.gnome.Weather/org.gnome.Weather"}, "org.gnome.Weather"},
        {{""}, ""},
        {{}, ""},
        {{"env", "env", "env"}, ""},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(programName(item.arguments), item.name) << ::testing::PrintToString(item.arguments);
    }
}

TEST(ProgramName, interpretersAreKnownWithTheirVersions) {
    EXPECT_TRUE(isInterpreter("python3"));
    EXPECT_TRUE(isInterpreter("python3.11"));
    EXPECT_TRUE(isInterpreter("electron22"));
    EXPECT_TRUE(isInterpreter("java"));
    EXPECT_TRUE(isInterpreter("sh"));
    EXPECT_FALSE(isInterpreter("gimp-2.10"));
    EXPECT_FALSE(isInterpreter("java-editor"));
    EXPECT_FALSE(isInterpreter(""));
    EXPECT_FALSE(isInterpreter("7"));
}

} // namespace

} // namespace quillary::test
