#include "platform/x11/XsettingsText.h"
#include "tests/x11/XsettingsBytes.h"

#include <gtest/gtest.h>

#include <random>

namespace quillary {

namespace {

using test::XsettingsBytes;

constexpr const char* name = "Net/IconThemeName";

std::optional<std::string> read(const std::string& bytes) {
    return xsettingsText(bytes, name);
}

XsettingsBytes usual(XsettingsBytes::Order order = XsettingsBytes::Order::leastFirst) {
    XsettingsBytes settings(order);
    settings.integer("Xft/DPI", 98304).colour("Net/Colour").text("Net/ThemeName", "Grey");
    settings.text(name, "elementary-xfce").integer("Net/DoubleClickTime", 400);
    return settings;
}

} // namespace

TEST(XsettingsText, isTheValueOfTheNamedSetting) {
    const auto bytes = usual().bytes();
    EXPECT_EQ(read(bytes), "elementary-xfce");
    EXPECT_EQ(xsettingsText(bytes, "Net/ThemeName"), "Grey");
    EXPECT_EQ(xsettingsText(bytes, "Net/Theme"), std::nullopt);
    EXPECT_EQ(xsettingsText(bytes, ""), std::nullopt);
}

TEST(XsettingsText, eitherByteOrderIsRead) {
    EXPECT_EQ(read(usual(XsettingsBytes::Order::mostFirst).bytes()), "elementary-xfce");
    auto other = usual().bytes();
    other[0] = 2;
    EXPECT_EQ(read(other), std::nullopt);
}

TEST(XsettingsText, numbersAndColoursAreNoTexts) {
    EXPECT_EQ(read(XsettingsBytes().integer(name, 1).bytes()), std::nullopt);
    EXPECT_EQ(read(XsettingsBytes().colour(name).bytes()), std::nullopt);
    EXPECT_EQ(read(XsettingsBytes().text(name, "").bytes()), "");
}

TEST(XsettingsText, textsAreUtf8) {
    EXPECT_EQ(read(XsettingsBytes().text(name, "Möwe").bytes()), "Möwe");
    EXPECT_EQ(read(XsettingsBytes().text(name, "M\xF6we").bytes()), std::nullopt);
}

TEST(XsettingsText, ofSettingsWithOneNameTheFirstCounts) {
    EXPECT_EQ(read(XsettingsBytes().text(name, "A").text(name, "B").bytes()), "A");
}

TEST(XsettingsText, whatComesBehindTheAnnouncedSettingsDoesNotCount) {
    EXPECT_EQ(read(usual().bytes(3)), std::nullopt);
    EXPECT_EQ(read(usual().bytes(4)), "elementary-xfce");
    EXPECT_EQ(read(usual().bytes(0xFFFFFFFFU)), "elementary-xfce");
    EXPECT_EQ(xsettingsText(usual().bytes(0xFFFFFFFFU), "None"), std::nullopt);
}

TEST(XsettingsText, bytesThatAreCutGiveNothing) {
    const auto bytes = XsettingsBytes().integer("Xft/DPI", 1).text(name, "Papirus").bytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_EQ(read(bytes.substr(0, size)), std::nullopt) << size;
    }
    EXPECT_EQ(read(bytes), "Papirus");
}

TEST(XsettingsText, lengthsBeyondTheEndGiveNothing) {
    EXPECT_EQ(read(XsettingsBytes().start(1, name).number(0xFFFFFFFFU, 4).padded("abcd").bytes()),
              std::nullopt);
    EXPECT_EQ(read(XsettingsBytes().start(1, name).number(5, 4).padded("abcd").bytes()), std::nullopt);
    EXPECT_EQ(read(XsettingsBytes().start(3, "Unknown").bytes() + usual().bytes()), std::nullopt);
}

TEST(XsettingsText, anyBytesAreTaken) {
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        std::mt19937 random(seed);
        auto bytes = usual().bytes();
        for (int change = 0; change < 5; ++change) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        EXPECT_LE(read(bytes).value_or("").size(), bytes.size()) << seed;
    }
}

} // namespace quillary
