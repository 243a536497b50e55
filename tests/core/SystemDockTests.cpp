#include "core/SystemDock.h"
#include "tests/core/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace quillary {

namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using test::writeFile;

using Paths = std::vector<std::string>;

const std::string finder = "/System/Library/CoreServices/Finder.app";

/// Paths read from a file that holds `body` as the content of an XML property list.
Paths pathsIn(const std::string& body) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "dock.plist",
              R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + body + "</plist>");
    return SystemDock::load(folder.path() / "dock.plist");
}

std::string tile(const std::string& location) {
    return "<dict><key>tile-data</key><dict><key>file-data</key><dict><key>_CFURLString</key>" + location +
           "</dict></dict></dict>";
}

std::string tileFor(const std::string& location) {
    return tile("<string>" + location + "</string>");
}

std::string apps(const std::string& tiles) {
    return "<key>persistent-apps</key><array>" + tiles + "</array>";
}

std::string others(const std::string& tiles) {
    return "<key>persistent-others</key><array>" + tiles + "</array>";
}

Paths pathsFor(const std::string& location) {
    return pathsIn("<dict>" + apps(tileFor(location)) + "</dict>");
}

class SystemDockSamples : public testing::TestWithParam<const char*> {};

TEST_P(SystemDockSamples, givesTheExpectedPaths) {
    const fs::path data(QUILLARY_TEST_DATA);
    const auto expected = nlohmann::json::parse(
        test::readFile(data / "dock-plists" / (std::string(GetParam()) + ".expected.json")));
    EXPECT_EQ(SystemDock::load(data / "dock-plists" / (std::string(GetParam()) + ".plist")),
              expected.get<Paths>());
}

INSTANTIATE_TEST_SUITE_P(Files, SystemDockSamples, testing::Values("02", "13", "D01", "D03"),
                         [](const auto& name) { return std::string(name.param); });

TEST(SystemDock, aMissingFileGivesTheFinder) {
    EXPECT_EQ(SystemDock::load("/nonexistent/com.apple.dock.plist"), Paths{finder});
}

TEST(SystemDock, whatIsNoPropertyListGivesTheFinder) {
    const TemporaryFolder folder;
    for (const std::string& content :
         {std::string(), std::string("x"), std::string("hello world, no list"), std::string("bplist00"),
          std::string("bplist00") + std::string(40, '\0'), std::string("<plist><dict>"),
          std::string("<array"), std::string(100, '\xff')}) {
        writeFile(folder.path() / "file", content);
        EXPECT_EQ(SystemDock::load(folder.path() / "file"), Paths{finder}) << content;
    }
    EXPECT_EQ(SystemDock::load(folder.path()), Paths{finder});
}

TEST(SystemDock, anotherTopLevelThanADictionaryGivesTheFinder) {
    EXPECT_EQ(pathsIn("<array>" + tileFor("/Applications/A.app") + "</array>"), Paths{finder});
    EXPECT_EQ(pathsIn("<string>/Applications/A.app</string>"), Paths{finder});
    EXPECT_EQ(SystemDock::paths(nullptr), Paths{finder});
}

TEST(SystemDock, applicationsComeBeforeFoldersInTheirOrder) {
    EXPECT_EQ(pathsIn("<dict>" + others(tileFor("file:///Users/me/Downloads/")) +
                      apps(tileFor("file:///Applications/Mail.app/") + tileFor("/Applications/Notes.app")) +
                      "</dict>"),
              (Paths{finder, "/Applications/Mail.app", "/Applications/Notes.app", "/Users/me/Downloads"}));
}

TEST(SystemDock, repeatsAndTheFinderAddNothing) {
    EXPECT_EQ(
        pathsIn("<dict>" +
                apps(tileFor(finder) + tileFor("file://" + finder + "/") + tileFor("/a") + tileFor("/a")) +
                others(tileFor("file:///a/") + tileFor("/a/")) + "</dict>"),
        (Paths{finder, "/a", "/a/"}));
}

TEST(SystemDock, plainPathsAreTakenAsTheyStand) {
    EXPECT_EQ(pathsFor("/Applications/100%25 Sure.app/"), (Paths{finder, "/Applications/100%25 Sure.app/"}));
    EXPECT_EQ(pathsFor("//a/../b"), (Paths{finder, "//a/../b"}));
    EXPECT_EQ(pathsFor("/Caf\xc3\xa9 &amp; Bar"), (Paths{finder, "/Caf\xc3\xa9 & Bar"}));
    EXPECT_EQ(pathsFor("/bad\xff"), Paths{finder});
}

TEST(SystemDock, tilesWithoutAUsableLocationAreSkippedAlone) {
    const std::string good = tileFor("/good");
    for (const std::string& bad :
         {std::string("<dict/>"),
          std::string("<dict><key>tile-type</key><string>spacer-tile</string></dict>"),
          std::string("<dict><key>tile-data</key><string>x</string></dict>"),
          std::string("<dict><key>tile-data</key><array/></dict>"),
          std::string("<dict><key>tile-data</key><dict/></dict>"),
          std::string(
              "<dict><key>tile-data</key><dict><key>file-data</key><string>/x</string></dict></dict>"),
          std::string("<dict><key>tile-data</key><dict><key>file-data</key><dict/></dict></dict>"),
          tile("<integer>1</integer>"), tile("<data>L3g=</data>"), tile("<array><string>/x</string></array>"),
          tile("<true/>"), tile("<string/>"), tileFor("relative/path"), tileFor("https://example.org/x"),
          tileFor("file://elsewhere/x"), tileFor("file:x"), tileFor("file:///a b"), tileFor("file:///%FF")}) {
        EXPECT_EQ(pathsIn("<dict>" + apps(bad + good) + "</dict>"), (Paths{finder, "/good"})) << bad;
    }
}

TEST(SystemDock, aGroupOfAnotherTypeIsSkippedAlone) {
    for (const char* group : {"<string>/a</string>", "<dict/>", "<integer>3</integer>", "<array/>"}) {
        EXPECT_EQ(pathsIn("<dict><key>persistent-apps</key>" + std::string(group) + others(tileFor("/good")) +
                          "</dict>"),
                  (Paths{finder, "/good"}))
            << group;
    }
}

TEST(SystemDock, oneForeignElementSpoilsItsGroup) {
    for (const char* foreign : {"<string>/x</string>", "<array/>", "<integer>1</integer>"}) {
        EXPECT_EQ(pathsIn("<dict>" + apps(tileFor("/a") + foreign) + others(tileFor("/good")) + "</dict>"),
                  (Paths{finder, "/good"}))
            << foreign;
    }
}

TEST(SystemDock, binaryListsAreRead) {
    plist_t root = plist_new_dict();
    plist_t list = plist_new_array();
    for (const char* location :
         {"file:///Applications/Caf%C3%A9.app/", "/Applications/Gr\xc3\xbc\xc3\x9f.app"}) {
        plist_t fileData = plist_new_dict();
        plist_dict_set_item(fileData, "_CFURLString", plist_new_string(location));
        plist_t tileData = plist_new_dict();
        plist_dict_set_item(tileData, "file-data", fileData);
        plist_t element = plist_new_dict();
        plist_dict_set_item(element, "tile-data", tileData);
        plist_array_append_item(list, element);
    }
    plist_dict_set_item(root, "persistent-apps", list);
    const Paths expected{finder, "/Applications/Caf\xc3\xa9.app", "/Applications/Gr\xc3\xbc\xc3\x9f.app"};
    EXPECT_EQ(SystemDock::paths(root), expected);

    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const TemporaryFolder folder;
    writeFile(folder.path() / "dock.plist", std::string_view(bytes, length));
    EXPECT_EQ(SystemDock::load(folder.path() / "dock.plist"), expected);
    plist_to_bin_free(bytes);
    plist_free(root);
}

TEST(SystemDock, hugeAndDeepFilesGiveTheFinder) {
    std::string deep;
    for (int level = 0; level < 120'000; ++level) {
        deep += "<array>";
    }
    EXPECT_EQ(pathsIn("<dict><key>a</key>" + deep), Paths{finder});
    const std::string padding(1'100'000, ' ');
    EXPECT_EQ(pathsIn("<dict>" + apps(tileFor("/a")) + padding + "</dict>"), Paths{finder});
}

} // namespace

} // namespace quillary
