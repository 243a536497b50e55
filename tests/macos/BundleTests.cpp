#include <gtest/gtest.h>
#include <plist/plist.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <type_traits>

namespace quillary::test {
namespace {

const std::filesystem::path folder = std::filesystem::path(QUILLARY_SOURCE_FOLDER) / "packaging" / "macos";

struct PlistDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};

using Plist = std::unique_ptr<std::remove_pointer_t<plist_t>, PlistDeleter>;

Plist read(const std::filesystem::path& file) {
    const std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    const std::string bytes = text.str();
    plist_t node = nullptr;
    plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
    return Plist(node);
}

bool isTrue(const Plist& dictionary, const char* key) {
    const plist_t node = plist_dict_get_item(dictionary.get(), key);
    std::uint8_t value = 0;
    if (plist_get_node_type(node) == PLIST_BOOLEAN) {
        plist_get_bool_val(node, &value);
    }
    return value != 0;
}

std::string text(const Plist& dictionary, const char* key) {
    std::uint64_t length = 0;
    const char* value = plist_get_string_ptr(plist_dict_get_item(dictionary.get(), key), &length);
    return value == nullptr ? "" : std::string(value, length);
}

TEST(Bundle, isAnAccessoryWithoutAnIconInTheDock) {
    const Plist information = read(folder / "Info.plist.in");
    ASSERT_NE(information, nullptr);
    EXPECT_TRUE(isTrue(information, "LSUIElement"));
    EXPECT_TRUE(isTrue(information, "NSHighResolutionCapable"));
}

TEST(Bundle, saysWhatItIs) {
    const Plist information = read(folder / "Info.plist.in");
    ASSERT_NE(information, nullptr);
    EXPECT_EQ(text(information, "CFBundlePackageType"), "APPL");
    EXPECT_EQ(text(information, "NSPrincipalClass"), "NSApplication");
    EXPECT_EQ(text(information, "CFBundleShortVersionString"), "${MACOSX_BUNDLE_SHORT_VERSION_STRING}");
    EXPECT_EQ(text(information, "CFBundleVersion"), "${MACOSX_BUNDLE_BUNDLE_VERSION}");
    EXPECT_EQ(text(information, "CFBundleIdentifier"), "${MACOSX_BUNDLE_GUI_IDENTIFIER}");
    EXPECT_EQ(text(information, "CFBundleExecutable"), "${MACOSX_BUNDLE_EXECUTABLE_NAME}");
}

TEST(Bundle, asksForNothingButLibrariesOfOtherTeams) {
    const Plist entitlements = read(folder / "Quillary.entitlements");
    ASSERT_NE(entitlements, nullptr);
    EXPECT_EQ(plist_dict_get_size(entitlements.get()), 1U);
    EXPECT_TRUE(isTrue(entitlements, "com.apple.security.cs.disable-library-validation"));
}

} // namespace
} // namespace quillary::test
