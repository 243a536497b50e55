#include "tests/pictures/Reference.h"

#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

#include <ostream>

namespace quillary::test {

void PrintTo(const Exhibit& exhibit, std::ostream* out) {
    *out << exhibit.name;
}

namespace {

class Pictures : public testing::TestWithParam<Exhibit> {};

TEST_P(Pictures, lookAsTheReference) {
    expectLooksAs(QStringLiteral(QUILLARY_REFERENCES), GetParam().name, picture(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Exhibits, Pictures, testing::ValuesIn(exhibits()),
                         [](const auto& tested) { return testName(tested); });

struct Missing {
    Omission omission;
    const char* what;
};

void PrintTo(const Missing& missing, std::ostream* out) {
    *out << missing.what;
}

class Comparison : public testing::TestWithParam<Missing> {};

TEST_P(Comparison, findsWhatIsMissing) {
    Exhibit glass{.name = "glass", .style = DockStyle::glass};
    for (const double scale : {1.0, 2.0}) {
        glass.scale = scale;
        EXPECT_GT(difference(picture(glass), picture(glass, GetParam().omission)), 2 * tolerance) << scale;
    }
}

INSTANTIATE_TEST_SUITE_P(Omissions, Comparison,
                         testing::Values(Missing{Omission::backgroundShadow, "backgroundShadow"},
                                         Missing{Omission::iconShadow, "iconShadow"},
                                         Missing{Omission::dot, "dot"}, Missing{Omission::corner, "corner"},
                                         Missing{Omission::border, "border"},
                                         Missing{Omission::pill, "pill"}),
                         testing::PrintToStringParamName());

TEST(Comparison, findsNothingInTheSamePicture) {
    const Exhibit glass{.name = "glass", .style = DockStyle::glass};
    EXPECT_EQ(difference(picture(glass), picture(glass)), 0);
}

} // namespace
} // namespace quillary::test

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans")));
    return RUN_ALL_TESTS();
}
