#include "platform/linux/systemdock/SavedValuesFile.h"
#include "tests/core/Succeeded.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillary::test {

namespace {

using State = SavedValuesFile::State;

class SavedValuesFileTest : public WorldTest {
protected:
    State stateOf(const std::string& text) {
        writeFile(path, text);
        return file.load().state;
    }

    const std::filesystem::path path = World::config() / "Quillary/system-dock.json";
    SavedValuesFile file{path};
};

TEST_F(SavedValuesFileTest, keepsValuesAndTheirAbsence) {
    EXPECT_EQ(file.load().state, State::absent);
    const SavedValues values{{"panel-1", "uint32 0"}, {"panel-2", std::nullopt}, {"grün", "\"\n\x7f"}};
    EXPECT_TRUE(succeeded(file.store(values)));
    EXPECT_EQ(file.load().state, State::valid);
    EXPECT_EQ(file.load().values, values);
    EXPECT_EQ(std::filesystem::status(path).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    file.remove();
    EXPECT_EQ(file.load().state, State::absent);
}

TEST_F(SavedValuesFileTest, readsWhatItWroteEarlier) {
    EXPECT_EQ(stateOf(R"({"version":1,"values":{"a":"1","b":null}})"), State::valid);
    EXPECT_EQ(file.load().values, (SavedValues{{"a", "1"}, {"b", std::nullopt}}));
}

TEST_F(SavedValuesFileTest, anythingElseIsDamage) {
    for (const char* text :
         {"", "{", "[]", "null", "1", "{}", R"({"version":1})", R"({"values":{}})",
          R"({"version":2,"values":{}})", R"({"version":"1","values":{}})", R"({"version":1,"values":[]})",
          R"({"version":1,"values":{"a":1}})", R"({"version":1,"values":{"a":["1"]}})",
          "{\"version\":1,\"values\":{\"\xff\":\"1\"}}", R"({"version":1,"values":{}}x)"}) {
        EXPECT_EQ(stateOf(text), State::damaged) << text;
        EXPECT_EQ(file.load().values, SavedValues()) << text;
    }
}

TEST_F(SavedValuesFileTest, whatIsTooLargeOrTooDeepIsDamage) {
    const std::string head = R"({"version":1,"values":{"a":")";
    EXPECT_EQ(stateOf(head + std::string(512, 'x') + "\"}}"), State::valid);
    EXPECT_EQ(stateOf(head + std::string(513, 'x') + "\"}}"), State::damaged);
    EXPECT_EQ(stateOf(R"({"version":1,"values":{}})" + std::string(70000, ' ')), State::damaged);
    EXPECT_EQ(stateOf(std::string(60000, '[')), State::damaged);
    std::string many;
    for (int i = 0; i < 257; ++i) {
        many.append(many.empty() ? "" : ",").append("\"" + std::to_string(i) + "\":null");
    }
    EXPECT_EQ(stateOf(R"({"version":1,"values":{)" + many + "}}"), State::damaged);
}

TEST_F(SavedValuesFileTest, aFolderInItsPlaceIsDamageAndCannotBeReplaced) {
    std::filesystem::create_directories(path / "inside");
    EXPECT_EQ(file.load().state, State::damaged);
    EXPECT_FALSE(file.store({}));
    file.remove();
    EXPECT_EQ(file.load().state, State::damaged);
}

} // namespace

} // namespace quillary::test
