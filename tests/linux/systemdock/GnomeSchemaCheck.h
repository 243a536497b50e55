#pragma once

#include <gtest/gtest.h>

#include <filesystem>

namespace quillary::test {

/// Lets a program's tests fail together when the schema of GNOME's dock was missing at the configuration.
class GnomeSchemaCheck : public testing::Environment {
public:
    void SetUp() override {
        ASSERT_TRUE(std::filesystem::exists(QUILLARY_DOCK_SCHEMAS "/gschemas.compiled"))
            << "the schema of Dash to Dock is missing: run scripts/setup test, then configure again";
    }
};

inline const auto* const gnomeSchemaCheck = testing::AddGlobalTestEnvironment(new GnomeSchemaCheck);

} // namespace quillary::test
