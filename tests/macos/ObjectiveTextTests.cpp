#include "tests/macos/ObjectiveText.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

using Names = std::set<std::string>;

TEST(ObjectiveText, findsMessagesWithAndWithoutArguments) {
    EXPECT_EQ(ObjectiveText::sentSelectors("x = [NSScreen screens];"), Names{"screens"});
    EXPECT_EQ(ObjectiveText::sentSelectors("[menu addItem:item];"), Names{"addItem:"});
    EXPECT_EQ(ObjectiveText::sentSelectors("[a drawInRect:r fromRect:s operation:o fraction:1.0];"),
              Names{"drawInRect:fromRect:operation:fraction:"});
}

TEST(ObjectiveText, findsMessagesWithinMessages) {
    EXPECT_EQ(ObjectiveText::sentSelectors("[[[NSThing alloc] initWithName:[other name]] fire]"),
              (Names{"alloc", "fire", "initWithName:", "name"}));
    EXPECT_EQ(ObjectiveText::sentSelectors("return [f([a b]) c];"), (Names{"b", "c"}));
}

TEST(ObjectiveText, findsMessagesWithinBlocks) {
    EXPECT_EQ(
        ObjectiveText::sentSelectors("[c observe:n\n  usingBlock:^(Note* note) {\n    [note name];\n  }];"),
        (Names{"name", "observe:usingBlock:"}));
}

TEST(ObjectiveText, takesNoConditionForAKeyword) {
    EXPECT_EQ(ObjectiveText::sentSelectors("[w setOpaque:on ? YES : NO];"), Names{"setOpaque:"});
    EXPECT_EQ(ObjectiveText::sentSelectors("[w setThing:A::b];"), Names{"setThing:"});
}

TEST(ObjectiveText, takesNoAttributeSubscriptListOrLambdaForAMessage) {
    EXPECT_EQ(ObjectiveText::sentSelectors("[[nodiscard]] int f(); a[i]; f(x)[0];"), Names{});
    EXPECT_EQ(ObjectiveText::sentSelectors("auto f = [this] { g(); }; h([a, &b](int c) { return c; });"),
              Names{});
    EXPECT_EQ(ObjectiveText::sentSelectors("x = @[ a ]; [] { return 1; }();"), Names{});
}

TEST(ObjectiveText, findsNamedSelectors) {
    EXPECT_EQ(ObjectiveText::sentSelectors("set(@selector(handle:with:));"), Names{"handle:with:"});
}

TEST(ObjectiveText, readsNothingInCommentsAndStrings) {
    EXPECT_EQ(ObjectiveText::sentSelectors("// [a b]\n/* [c d] */ \"[e f]\" @\"[g h]\""), Names{});
    EXPECT_EQ(ObjectiveText::sentSelectors("\"\\\"\"; [a b];"), Names{"b"});
}

TEST(ObjectiveText, readsDeclarationsOfMethods) {
    EXPECT_EQ(ObjectiveText::declaredSelectors("\n- (void)fire;\n+ (id)make;\n"), (Names{"fire", "make"}));
    EXPECT_EQ(ObjectiveText::declaredSelectors("\n- (nullable id)add:(void (^)(NSEvent* event))block\n    "
                                               "to:(id)other API_AVAILABLE(macos(10.6));"),
              Names{"add:to:"});
    EXPECT_EQ(ObjectiveText::declaredSelectors("\n- (void)ask:(int)x {\n    [self fire];\n}\n"),
              Names{"ask:"});
}

TEST(ObjectiveText, readsDeclarationsOfProperties) {
    EXPECT_EQ(ObjectiveText::declaredSelectors("@property(readonly) NSRect frame;"), Names{"frame"});
    EXPECT_EQ(ObjectiveText::declaredSelectors("@property BOOL hasShadow;"),
              (Names{"hasShadow", "setHasShadow:"}));
    EXPECT_EQ(ObjectiveText::declaredSelectors(
                  "@property(getter=isHidden) BOOL hidden API_AVAILABLE(macos(10.5));"),
              (Names{"isHidden", "setHidden:"}));
}

TEST(ObjectiveText, readsConstants) {
    const auto found = ObjectiveText::declaredConstants(
        "\ntypedef NS_ENUM(NSInteger, A) {\n    First,\n    Second API_AVAILABLE(macos(10.6)) = 1 << 4,\n};\n"
        "static const CGFloat Third = -2.0;\nAPPKIT_EXTERN NSNotificationName Fourth "
        "API_AVAILABLE(macos(10.6));\n");
    EXPECT_EQ(found, (std::map<std::string, std::string>{
                         {"First", ""}, {"Second", "1 << 4"}, {"Third", "-2.0"}, {"Fourth", ""}}));
}

TEST(ObjectiveText, readsLiterals) {
    EXPECT_EQ(ObjectiveText::literals("f(@\"one\", \"two\", CFSTR(\"three\"))"), (Names{"one", "three"}));
}

} // namespace
} // namespace quillary::test
