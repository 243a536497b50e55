#include "app/view/LabelText.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

LabelText::Look look(const QString& text) {
    return {.text = text, .font = {}, .room = QSize(120, 20), .ink = Qt::black};
}

int inkedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST(LabelText, isRenderedOnceForALook) {
    LabelText text;
    const auto mail = text.image(look(QStringLiteral("Mail"))).cacheKey();
    EXPECT_EQ(text.image(look(QStringLiteral("Mail"))).cacheKey(), mail);
    EXPECT_NE(text.image(look(QStringLiteral("Notes"))).cacheKey(), mail);
}

TEST(LabelText, fillsItsRoomInDevicePixels) {
    LabelText text;
    auto twice = look(QStringLiteral("Mail"));
    twice.room = QSize(240, 40);
    twice.ratio = 2;
    const int once = inkedPixels(text.image(look(QStringLiteral("Mail"))));
    EXPECT_GT(once, 20);
    EXPECT_EQ(text.image(twice).size(), QSize(240, 40));
    EXPECT_GT(inkedPixels(text.image(twice)), 3 * once);
}

TEST(LabelText, aTextThatIsTooLongEndsInTheRoom) {
    LabelText text;
    auto cut = look(QString(100, u'm'));
    cut.cut = true;
    const QImage image = text.image(cut);
    for (int y = 0; y < image.height(); ++y) {
        EXPECT_EQ(qAlpha(image.pixel(0, y)), 0);
        EXPECT_EQ(qAlpha(image.pixel(image.width() - 1, y)), 0);
    }
}

TEST(LabelText, aTextThatIsTooLongKeepsBothEnds) {
    const auto cut = [](const QString& words) {
        auto wanted = look(words);
        wanted.cut = true;
        return LabelText().image(wanted);
    };
    const QString middle(100, u'm');
    EXPECT_NE(cut(u'a' + middle + u'b'), cut(u'a' + middle + u'c'));
    EXPECT_NE(cut(u'a' + middle + u'b'), cut(u'd' + middle + u'b'));
    EXPECT_EQ(cut(u'a' + middle + u'b'), cut(u'a' + middle + middle + u'b'));
}

TEST(LabelText, anotherFontAndAnotherInkAreRenderedAnew) {
    LabelText text;
    auto plain = look(QStringLiteral("Mail"));
    const QImage before = text.image(plain);
    plain.font.setPixelSize(18);
    const QImage larger = text.image(plain);
    EXPECT_NE(before, larger);
    plain.ink = Qt::white;
    EXPECT_NE(text.image(plain), larger);
}

} // namespace quillary::test
