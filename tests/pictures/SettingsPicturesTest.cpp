#include "tests/pictures/Gallery.h"
#include "tests/pictures/SettingsGallery.h"

#include <QApplication>
#include <QDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace quillary::test {

void PrintTo(const SettingsExhibit& exhibit, std::ostream* out) {
    *out << exhibit.name;
}

namespace {

// That of the docks' pictures.
constexpr double tolerance = 3;

class SettingsPictures : public testing::TestWithParam<SettingsExhibit> {};

TEST_P(SettingsPictures, lookAsTheReference) {
    const QString name = QString::fromStdString(GetParam().name) + QStringLiteral(".png");
    const QImage reference(QStringLiteral(QUILLARY_SETTINGS_REFERENCES) + u'/' + name);
    ASSERT_FALSE(reference.isNull()) << "no reference " << qPrintable(name)
                                     << ": quillary_renew_settings_pictures renews them";
    const QImage now = settingsPicture(GetParam());
    const double found = difference(now, reference);
    EXPECT_LT(found, tolerance);
    if (found >= tolerance) {
        QDir().mkpath(QStringLiteral("pictures-that-differ"));
        now.save(QStringLiteral("pictures-that-differ/settings-") + name);
    }
}

INSTANTIATE_TEST_SUITE_P(Exhibits, SettingsPictures, testing::ValuesIn(settingsExhibits()),
                         [](const auto& tested) {
                             std::string name = tested.param.name;
                             std::ranges::replace_if(
                                 name, [](char letter) { return letter == '-' || letter == '.'; }, '_');
                             return name;
                         });

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
