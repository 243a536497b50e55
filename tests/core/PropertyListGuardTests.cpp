#include "core/PropertyListGuard.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quillary {

namespace {

using PropertyListGuard::isHarmless;

std::string bigEndian(std::uint64_t value, unsigned size) {
    std::string bytes;
    for (unsigned at = size; at > 0; --at) {
        bytes += static_cast<char>(value >> (8 * (at - 1)) & 0xFF);
    }
    return bytes;
}

/// A binary property list of the given objects with two-byte references and four-byte offsets; the first is
/// the root.
std::string binary(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const std::size_t tableStart = bytes.size();
    return bytes + table + std::string(6, '\0') + "\x04\x02" + bigEndian(objects.size(), 8) +
           bigEndian(0, 8) + bigEndian(tableStart, 8);
}

std::string marker(unsigned byte) {
    return std::string(1, static_cast<char>(byte));
}

std::string pairOf(std::uint64_t index) {
    return marker(0xA2) + bigEndian(index, 2) + bigEndian(index, 2);
}

std::string chain(std::size_t length) {
    std::vector<std::string> objects;
    for (std::size_t at = 1; at <= length; ++at) {
        objects.push_back(marker(0xA1) + bigEndian(at, 2));
    }
    objects.push_back(marker(0x09));
    return binary(objects);
}

TEST(PropertyListGuard, ordinaryListsPass) {
    EXPECT_TRUE(isHarmless("<plist><dict><key>a</key><array><string>&amp;</string></array></dict></plist>"));
    EXPECT_TRUE(isHarmless(binary({marker(0xD1) + bigEndian(1, 2) + bigEndian(2, 2), marker(0x51) + "k",
                                   marker(0x62) + std::string(4, 'u')})));
    EXPECT_TRUE(isHarmless(binary({marker(0x10) + "1"})));
    EXPECT_TRUE(isHarmless(binary({marker(0x23) + "12345678"})));
    EXPECT_TRUE(isHarmless(binary({marker(0x5F) + marker(0x10) + marker(0x14) + std::string(20, 's')})));
    EXPECT_TRUE(isHarmless(""));
}

TEST(PropertyListGuard, sizeIsBounded) {
    EXPECT_TRUE(isHarmless(std::string(1'048'576, ' ')));
    EXPECT_FALSE(isHarmless(std::string(1'048'577, ' ')));
}

TEST(PropertyListGuard, xmlContainersAreBounded) {
    std::string containers;
    for (int count = 0; count < 5000; ++count) {
        containers += "<array><dict>";
    }
    EXPECT_TRUE(isHarmless(containers));
    EXPECT_FALSE(isHarmless(containers + "<array >"));
    EXPECT_FALSE(isHarmless(containers + "<dict\n>"));
}

TEST(PropertyListGuard, xmlEntitiesAreBounded) {
    std::string entities;
    for (int count = 0; count < 4096; ++count) {
        entities += "&amp;";
    }
    EXPECT_TRUE(isHarmless(entities));
    EXPECT_FALSE(isHarmless(entities + "&lt;"));
}

TEST(PropertyListGuard, xmlKeysAreBounded) {
    std::string keys;
    for (int count = 0; count < 8192; ++count) {
        keys += "<key>a</key><true/>";
    }
    EXPECT_TRUE(isHarmless(keys));
    EXPECT_FALSE(isHarmless(keys + "<key >"));
}

TEST(PropertyListGuard, binaryNestingIsBounded) {
    EXPECT_TRUE(isHarmless(chain(64)));
    EXPECT_FALSE(isHarmless(chain(65)));
    EXPECT_FALSE(isHarmless(chain(60'000)));
}

TEST(PropertyListGuard, aListThatContainsItselfIsRefused) {
    EXPECT_FALSE(isHarmless(binary({marker(0xA1) + bigEndian(0, 2)})));
}

TEST(PropertyListGuard, sharedReferencesThatUnfoldHugelyAreRefused) {
    std::vector<std::string> objects;
    for (std::size_t level = 1; level <= 40; ++level) {
        objects.push_back(pairOf(level));
    }
    objects.push_back(marker(0x09));
    EXPECT_FALSE(isHarmless(binary(objects)));

    std::string many = marker(0xAF) + marker(0x11) + bigEndian(400, 2);
    for (int count = 0; count < 400; ++count) {
        many += bigEndian(1, 2);
    }
    const std::string longText =
        marker(0x5F) + marker(0x12) + bigEndian(500'000, 4) + std::string(500'000, 'x');
    EXPECT_FALSE(isHarmless(binary({many, longText})));
    EXPECT_TRUE(isHarmless(binary({pairOf(1), longText})));
}

TEST(PropertyListGuard, whatPointsOutsideTheFileIsRefused) {
    EXPECT_FALSE(isHarmless("bplist00"));
    EXPECT_FALSE(isHarmless(binary({})));
    EXPECT_FALSE(isHarmless(binary({marker(0xA1) + bigEndian(1, 2)})));
    EXPECT_FALSE(isHarmless(binary({marker(0x53) + "ab"})));
    EXPECT_FALSE(isHarmless(binary({marker(0x62) + "abc"})));
    EXPECT_FALSE(isHarmless(binary({marker(0x13) + "1234567"})));
    EXPECT_FALSE(isHarmless(binary({marker(0x81) + "1"})));
    EXPECT_FALSE(isHarmless(binary({marker(0xA1)})));
    EXPECT_FALSE(isHarmless(binary({marker(0xD1) + bigEndian(0, 2)})));
    EXPECT_FALSE(isHarmless(binary({marker(0x5F)})));
    EXPECT_FALSE(isHarmless(binary({marker(0x5F) + marker(0x11) + "1"})));
    EXPECT_FALSE(isHarmless(binary({marker(0x5F) + marker(0x14) + std::string(16, '\0')})));
    EXPECT_FALSE(isHarmless(binary({marker(0xAF) + marker(0x13) + std::string(8, '\xff')})));
}

TEST(PropertyListGuard, aDamagedTrailerIsRefused) {
    const std::string good = binary({marker(0x09)});
    ASSERT_TRUE(isHarmless(good));
    const std::size_t trailer = good.size() - 32;
    const auto damaged = [&](std::size_t at, const std::string& bytes) {
        std::string copy = good;
        return copy.replace(trailer + at, bytes.size(), bytes);
    };
    EXPECT_FALSE(isHarmless(damaged(6, marker(0))));
    EXPECT_FALSE(isHarmless(damaged(6, marker(9))));
    EXPECT_FALSE(isHarmless(damaged(7, marker(0))));
    EXPECT_FALSE(isHarmless(damaged(7, marker(9))));
    EXPECT_FALSE(isHarmless(damaged(8, bigEndian(2, 8))));
    EXPECT_FALSE(isHarmless(damaged(8, std::string(8, '\xff'))));
    EXPECT_FALSE(isHarmless(damaged(16, bigEndian(1, 8))));
    EXPECT_FALSE(isHarmless(damaged(24, bigEndian(7, 8))));
    EXPECT_FALSE(isHarmless(damaged(24, bigEndian(8, 8))));
    EXPECT_FALSE(isHarmless(damaged(24, std::string(8, '\xff'))));
}

} // namespace

} // namespace quillary
