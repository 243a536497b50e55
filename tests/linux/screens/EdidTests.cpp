#include "platform/linux/screens/Edid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>

namespace quillary {

namespace {

using Block = std::array<std::uint8_t, 128>;

void seal(Block& block) {
    block[127] = 0;
    block[127] =
        static_cast<std::uint8_t>(0x100U - (std::accumulate(block.begin(), block.end(), 0U) & 0xFFU));
}

void describe(Block& block, std::size_t index, std::uint8_t tag, std::string_view text) {
    const auto at = 54 + index * 18;
    block[at + 3] = tag;
    std::copy(text.begin(), text.end(), block.begin() + static_cast<std::ptrdiff_t>(at) + 5);
}

// A "DEL" display (0x10AC), product 0xA0C4, serial 0x30424C53.
Block dell() {
    Block block{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00,
                0x10, 0xAC, 0xC4, 0xA0, 0x53, 0x4C, 0x42, 0x30};
    describe(block, 1, 0xFF, "SN-1234\n    ");
    describe(block, 2, 0xFC, "DELL U2415\n ");
    seal(block);
    return block;
}

} // namespace

TEST(Edid, readsMakerProductSerialAndName) {
    const auto edid = Edid::parse(dell());
    ASSERT_TRUE(edid);
    EXPECT_EQ(edid->maker, "DEL");
    EXPECT_EQ(edid->product, 0xA0C4);
    EXPECT_EQ(edid->serial, 0x30424C53U);
    EXPECT_EQ(edid->serialText, "SN-1234");
    EXPECT_EQ(edid->monitorName, "DELL U2415");
    EXPECT_EQ(edid->identity(), "DEL/41156/809651283/SN-1234");
}

TEST(Edid, damagedBlocksAreRefused) {
    auto block = dell();
    EXPECT_FALSE(Edid::parse(std::span(block).first(127)));
    EXPECT_FALSE(Edid::parse({}));
    block[20] = 7;
    EXPECT_FALSE(Edid::parse(block)) << "wrong checksum";
    block = dell();
    block[0] = 1;
    seal(block);
    EXPECT_FALSE(Edid::parse(block)) << "wrong header";
}

TEST(Edid, extensionBlocksAfterTheFirstAreAllowed) {
    const auto block = dell();
    std::vector<std::uint8_t> two(block.begin(), block.end());
    two.resize(256, 0xEE);
    EXPECT_EQ(Edid::parse(two), Edid::parse(block));
}

TEST(Edid, withoutSerialThereIsNoIdentity) {
    auto block = dell();
    std::fill_n(block.begin() + 12, 4, std::uint8_t{0});
    std::fill_n(block.begin() + 72, 18, std::uint8_t{0});
    seal(block);
    const auto edid = Edid::parse(block);
    ASSERT_TRUE(edid);
    EXPECT_EQ(edid->serial, 0U);
    EXPECT_EQ(edid->serialText, "");
    EXPECT_EQ(edid->identity(), std::nullopt);
}

TEST(Edid, aMakerOutsideTheAlphabetIsNone) {
    auto block = dell();
    block[8] = 0;
    block[9] = 0;
    seal(block);
    const auto edid = Edid::parse(block);
    ASSERT_TRUE(edid);
    EXPECT_EQ(edid->maker, "");
    EXPECT_EQ(edid->identity(), std::nullopt);
}

TEST(Edid, textsKeepAsciiOnlyAndLosePadding) {
    auto block = dell();
    describe(block, 2, 0xFC,
             "  A\xC3\xA9\x01"
             "B  \n\xFF\xFF\xFF");
    seal(block);
    const auto edid = Edid::parse(block);
    ASSERT_TRUE(edid);
    EXPECT_EQ(edid->monitorName, "AB");
}

TEST(Edid, aNameOfThirteenBytesNeedsNoEnd) {
    auto block = dell();
    describe(block, 2, 0xFC, "ABCDEFGHIJKLM");
    seal(block);
    EXPECT_EQ(Edid::parse(block)->monitorName, "ABCDEFGHIJKLM");
}

TEST(Edid, detailedTimingsAreNoTexts) {
    auto block = dell();
    // A pixel clock in the first two bytes makes a descriptor a timing, whatever follows.
    block[54 + 2 * 18] = 1;
    seal(block);
    EXPECT_EQ(Edid::parse(block)->monitorName, "");
}

} // namespace quillary
