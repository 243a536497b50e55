#include "platform/linux/glib/SettingsSchema.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

using Source = Released<GSettingsSchemaSource, g_settings_schema_source_unref>;

constexpr const char* schemas = R"(<?xml version="1.0" encoding="UTF-8"?>
<schemalist>
  <schema id="org.test.Usual" path="/org/test/usual/">
    <key name="flag" type="b"><default>false</default></key>
    <key name="delay" type="d"><default>1.5</default></key>
  </schema>
  <schema id="org.test.Relocatable">
    <key name="flag" type="b"><default>false</default></key>
  </schema>
</schemalist>)";

class SettingsSchemaTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        const auto folder = World::systemData() / "schemas";
        writeFile(folder / "test.gschema.xml", schemas);
        ASSERT_EQ(std::system(("glib-compile-schemas --strict " + folder.string()).c_str()), 0);
        source.reset(g_settings_schema_source_new_from_directory(folder.c_str(), nullptr, TRUE, nullptr));
        ASSERT_TRUE(source);
    }

    [[nodiscard]] bool isFound(const char* name, std::initializer_list<SettingsKey> keys) const {
        return findSettingsSchema(name, keys, source.get()) != nullptr;
    }

    Source source;
};

TEST_F(SettingsSchemaTest, aSchemaWithAllKeysIsFound) {
    EXPECT_TRUE(isFound("org.test.Usual", {}));
    EXPECT_TRUE(
        isFound("org.test.Usual", {{"flag", G_VARIANT_TYPE_BOOLEAN}, {"delay", G_VARIANT_TYPE_DOUBLE}}));
}

TEST_F(SettingsSchemaTest, whatWouldEndTheProgramIsNotFound) {
    EXPECT_FALSE(isFound("org.test.None", {}));
    EXPECT_FALSE(isFound("org.test.Relocatable", {{"flag", G_VARIANT_TYPE_BOOLEAN}}));
    EXPECT_FALSE(isFound("org.test.Usual", {{"none", G_VARIANT_TYPE_BOOLEAN}}));
    EXPECT_FALSE(
        isFound("org.test.Usual", {{"flag", G_VARIANT_TYPE_BOOLEAN}, {"delay", G_VARIANT_TYPE_STRING}}));
    EXPECT_EQ(findSettingsSchema("org.test.Usual", {}, nullptr), nullptr);
}

TEST_F(SettingsSchemaTest, keysHaveExactlyOneType) {
    const auto schema = findSettingsSchema("org.test.Usual", {}, source.get());
    ASSERT_TRUE(schema);
    EXPECT_TRUE(hasSettingsKey(schema.get(), {"delay", G_VARIANT_TYPE_DOUBLE}));
    EXPECT_FALSE(hasSettingsKey(schema.get(), {"delay", G_VARIANT_TYPE_ANY}));
    EXPECT_FALSE(hasSettingsKey(schema.get(), {"Delay", G_VARIANT_TYPE_DOUBLE}));
}

} // namespace

} // namespace quillary::test
