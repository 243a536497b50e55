#include "platform/macos/ChildProgram.h"
#include "platform/macos/LogLine.h"
#include "platform/macos/MovementPace.h"
#include "platform/macos/RaisedWindow.h"
#include "platform/macos/RunningInstance.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

TEST(RunningInstance, theOneThatWasLaunchedLaterMakesWay) {
    const RunningInstance early{.pid = 900, .launched = 100.0};
    const RunningInstance late{.pid = 200, .launched = 100.5};
    EXPECT_TRUE(makesWay(late, {early}));
    EXPECT_FALSE(makesWay(early, {late}));
}

TEST(RunningInstance, oneOfUnknownLaunchStays) {
    const RunningInstance unknown{.pid = 900, .launched = std::nullopt};
    const RunningInstance known{.pid = 200, .launched = 1.0};
    EXPECT_TRUE(makesWay(known, {unknown}));
    EXPECT_FALSE(makesWay(unknown, {known}));
}

TEST(RunningInstance, ofEqualsTheLowerIdStays) {
    const RunningInstance low{.pid = 10, .launched = 5.0};
    const RunningInstance high{.pid = 11, .launched = 5.0};
    EXPECT_TRUE(makesWay(high, {low}));
    EXPECT_FALSE(makesWay(low, {high}));
}

TEST(RunningInstance, aloneItStays) {
    const RunningInstance own{.pid = 10, .launched = 5.0};
    EXPECT_FALSE(makesWay(own, {}));
    EXPECT_FALSE(makesWay(own, {{.pid = 10, .launched = 4.0}}));
}

TEST(RaisedWindow, ordinaryWindowsBringTheProgramForward) {
    EXPECT_TRUE(bringsForward(QEvent::Show, Qt::Window));
    EXPECT_TRUE(bringsForward(QEvent::ZOrderChange, Qt::Window));
    EXPECT_TRUE(bringsForward(QEvent::Show, Qt::Dialog));
}

TEST(RaisedWindow, docksMenusAndLabelsDoNot) {
    EXPECT_FALSE(bringsForward(QEvent::Show, Qt::Tool));
    EXPECT_FALSE(bringsForward(QEvent::ZOrderChange, Qt::Tool));
    EXPECT_FALSE(bringsForward(QEvent::Show, Qt::Popup));
    EXPECT_FALSE(bringsForward(QEvent::Show, Qt::ToolTip));
    EXPECT_FALSE(bringsForward(QEvent::Show, Qt::Widget));
}

TEST(RaisedWindow, otherEventsDoNot) {
    EXPECT_FALSE(bringsForward(QEvent::Hide, Qt::Window));
    EXPECT_FALSE(bringsForward(QEvent::WindowActivate, Qt::Window));
}

TEST(MovementPace, theFirstMovementIsToldAtOnce) {
    MovementPace pace;
    EXPECT_EQ(pace.wait(5.0), 0.0);
    EXPECT_TRUE(pace.accepts(QPointF(1, 2), 5.0));
}

TEST(MovementPace, theNextOneWaitsForEightMilliseconds) {
    MovementPace pace;
    ASSERT_TRUE(pace.accepts(QPointF(1, 2), 5.0));
    EXPECT_NEAR(pace.wait(5.002), 0.006, 1e-9);
    EXPECT_EQ(pace.wait(5.009), 0.0);
}

TEST(MovementPace, aPlaceThatWasToldIsNotToldAgain) {
    MovementPace pace;
    ASSERT_TRUE(pace.accepts(QPointF(1, 2), 5.0));
    EXPECT_FALSE(pace.accepts(QPointF(1, 2), 6.0));
    EXPECT_TRUE(pace.accepts(QPointF(1, 3), 6.0));
}

TEST(MovementPace, aMovementThatLedNowhereDelaysNoOther) {
    MovementPace pace;
    ASSERT_TRUE(pace.accepts(QPointF(1, 2), 5.0));
    ASSERT_FALSE(pace.accepts(QPointF(1, 2), 6.0));
    EXPECT_EQ(pace.wait(6.001), 0.0);
}

TEST(LogLine, lineBreaksAndControlCharactersBecomeSpaces) {
    EXPECT_EQ(logLine("Quillary: a\nb\tc\x07"), "Quillary: a b c ");
    EXPECT_EQ(logLine("a\xE2\x80\xA8z\xC2\x85z"), "a z z");
}

TEST(LogLine, otherTextStaysAsItIs) {
    EXPECT_EQ(logLine("Quillary: Entwürfe — 100 %s 🚢"), "Quillary: Entwürfe — 100 %s 🚢");
    EXPECT_EQ(logLine(""), "");
}

TEST(LogLine, brokenUtf8IsReplaced) {
    EXPECT_EQ(logLine("a\xFFz"), "a\xEF\xBF\xBDz");
}

TEST(LogLine, longLinesEndAtAWholeCharacter) {
    EXPECT_EQ(logLine(std::string(5000, 'x')), std::string(1000, 'x'));
    EXPECT_EQ(logLine(std::string(999, 'x') + "äää"), std::string(999, 'x'));
    EXPECT_EQ(logLine(std::string(998, 'x') + "ää"), std::string(998, 'x') + "ä");
}

TEST(LogLine, replacementsDoNotMakeALineTooLong) {
    EXPECT_LE(logLine(std::string(5000, '\xFF')).size(), 1000U);
}

TEST(ChildProgram, tellsTheExitStatus) {
    EXPECT_EQ(runAndWait("/bin/sh", {"-c", "exit 7"}), 7);
    EXPECT_EQ(runAndWait("/bin/sh", {"-c", "exit 0"}), 0);
}

TEST(ChildProgram, passesArgumentsAsTheyAre) {
    EXPECT_EQ(runAndWait("/bin/sh", {"-c", "test \"$1\" = 'a b' && test $# = 1", "sh", "a b"}), 0);
}

TEST(ChildProgram, whatCannotBeStartedOrWasKilledIsMinusOne) {
    EXPECT_EQ(runAndWait("/nonexistent/program", {}), -1);
    EXPECT_EQ(runAndWait("/bin/sh", {"-c", "kill -9 $$"}), -1);
}

} // namespace
} // namespace quillary::test
