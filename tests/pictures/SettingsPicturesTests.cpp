#include "tests/pictures/Reference.h"
#include "tests/pictures/SettingsGallery.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <ostream>

namespace quillary::test {

void PrintTo(const SettingsExhibit& exhibit, std::ostream* out) {
    *out << exhibit.name;
}

namespace {

class SettingsPictures : public testing::TestWithParam<SettingsExhibit> {};

TEST_P(SettingsPictures, lookAsTheReference) {
    expectLooksAs(QStringLiteral(QUILLARY_SETTINGS_REFERENCES), GetParam().name, settingsPicture(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Exhibits, SettingsPictures, testing::ValuesIn(settingsExhibits()),
                         [](const auto& tested) { return testName(tested); });

TEST(SettingsComparison, findsAFocusRing) {
    for (const auto shade : {Shade::light, Shade::dark}) {
        const SettingsExhibit plain{.name = "plain", .shade = shade};
        SettingsExhibit focused = plain;
        focused.tabs = 3;
        EXPECT_GT(difference(settingsPicture(plain), settingsPicture(focused)), 2 * tolerance);
    }
}

TEST(SettingsComparison, findsAnotherShadeAndAnotherPlace) {
    const SettingsExhibit plain{.name = "plain"};
    EXPECT_GT(difference(settingsPicture(plain), settingsPicture({.name = "dark", .shade = Shade::dark})),
              100);
    EXPECT_GT(difference(settingsPicture(plain), settingsPicture({.name = "end", .scrolled = true})), 100);
}

TEST(SettingsComparison, findsNothingInTheSamePicture) {
    const SettingsExhibit plain{.name = "plain"};
    EXPECT_EQ(difference(settingsPicture(plain), settingsPicture(plain)), 0);
}

} // namespace
} // namespace quillary::test

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(quillary::test::settingsFont());
    return RUN_ALL_TESTS();
}
