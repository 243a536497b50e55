#include "platform/linux/LinuxBundleInfo.h"
#include "tests/core/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

BundleInfo read(const std::string& text) {
    const TemporaryFolder folder;
    std::ofstream(folder.path() / "bundle.json") << text;
    return readBundleInfo(folder.path() / "bundle.json");
}

} // namespace

TEST(LinuxBundleInfo, readsBothStrings) {
    EXPECT_EQ(read(R"({"CFBundleShortVersionString":"1.2","CFBundleVersion":"34","more":1})"),
              (BundleInfo{.shortVersion = "1.2", .build = "34"}));
}

TEST(LinuxBundleInfo, whatIsMissingOrNoStringIsAbsent) {
    EXPECT_EQ(read(R"({"CFBundleVersion":"34"})"), (BundleInfo{.shortVersion = std::nullopt, .build = "34"}));
    EXPECT_EQ(read(R"({"CFBundleShortVersionString":"1.2","CFBundleVersion":34})"),
              (BundleInfo{.shortVersion = "1.2", .build = std::nullopt}));
}

TEST(LinuxBundleInfo, textsThatAreNoShortLineAreAbsent) {
    EXPECT_EQ(read(R"({"CFBundleShortVersionString":"","CFBundleVersion":"3\n4"})"), BundleInfo());
    EXPECT_EQ(read(R"({"CFBundleVersion":")" + std::string(65, '1') + R"("})"), BundleInfo());
    EXPECT_EQ(read(R"({"CFBundleVersion":")" + std::string(64, '1') + R"("})").build, std::string(64, '1'));
}

TEST(LinuxBundleInfo, aFileThatIsNoneGivesNothing) {
    for (const auto* text :
         {"", "[]", "{", "null", R"({"CFBundleVersion":"34"} more)", "{\"CFBundleVersion\":\"\xff\"}"}) {
        EXPECT_EQ(read(text), BundleInfo()) << text;
    }
    EXPECT_EQ(read(R"({"CFBundleVersion":"34"})" + std::string(65536, ' ')), BundleInfo());
    EXPECT_EQ(read(std::string(60000, '[')), BundleInfo());
    EXPECT_EQ(readBundleInfo("/nowhere/bundle.json"), BundleInfo());
    EXPECT_EQ(readBundleInfo("/"), BundleInfo());
}

TEST(LinuxBundleInfo, isFoundBesideTheInstalledProgram) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "bin");
    std::filesystem::create_directories(folder.path() / "share/quillary");
    std::ofstream(folder.path() / "share/quillary/bundle.json") << R"({"CFBundleVersion":"34"})";
    EXPECT_EQ(readBundleInfo(bundleInfoFile(folder.path() / "bin/quillary")).build, "34");
}

} // namespace quillary::test
