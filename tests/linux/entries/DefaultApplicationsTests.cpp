#include "platform/linux/entries/DefaultApplications.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

DesktopEntry entry(const std::string& program, bool noDisplay = false) {
    DesktopEntry result;
    result.path = "/" + program + ".desktop";
    result.id = program + ".desktop";
    result.name = program;
    result.program = program;
    result.noDisplay = noDisplay;
    return result;
}

DesktopEntry terminalEntry(const std::string& program, bool noDisplay = false) {
    auto result = entry(program, noDisplay);
    result.categories = {"System", "TerminalEmulator"};
    return result;
}

class DefaultTerminalTest : public WorldTest {
protected:
    [[nodiscard]] std::string terminal(const std::vector<DesktopEntry>& entries) const {
        return DefaultApplications::terminal(EntryIndex(entries), alternatives);
    }
    void choose(const std::string& program) const {
        std::filesystem::create_directories(alternatives);
        std::filesystem::create_symlink(program, alternatives / "x-terminal-emulator");
    }

    const std::filesystem::path alternatives = World::root() / "system-data/alternatives";
};

TEST_F(DefaultTerminalTest, theChosenAlternativeComesFirst) {
    choose("/usr/bin/chosen");
    EXPECT_EQ(terminal({terminalEntry("other"), entry("chosen")}), "/chosen.desktop");
}

TEST_F(DefaultTerminalTest, aWrapperStandsForItsProgram) {
    choose("/usr/bin/chosen.wrapper");
    EXPECT_EQ(terminal({terminalEntry("other"), entry("chosen")}), "/chosen.desktop");
}

TEST_F(DefaultTerminalTest, aChosenEntryThatIsNotDisplayedIsPassedOver) {
    choose("/usr/bin/chosen");
    EXPECT_EQ(terminal({terminalEntry("chosen", true), terminalEntry("other")}), "/other.desktop");
    EXPECT_EQ(terminal({terminalEntry("chosen", true)}), "");
}

TEST_F(DefaultTerminalTest, withoutAChoiceTheFirstInstalledOneIsTaken) {
    auto missing = terminalEntry("missing");
    missing.tryExecMissing = true;
    EXPECT_EQ(terminal({entry("editor"), missing, terminalEntry("shy", true), terminalEntry("first"),
                        terminalEntry("second")}),
              "/first.desktop");
    EXPECT_EQ(terminal({entry("editor")}), "");
    choose("/usr/bin/unknown");
    EXPECT_EQ(terminal({terminalEntry("first")}), "/first.desktop");
}

} // namespace

} // namespace quillary::test
