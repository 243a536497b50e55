#include <gio/gio.h>
#include <gtest/gtest.h>

namespace quillary::test {

TEST(TestSurroundings, noBusIsReachedOrLaunched) {
    for (const auto type : {G_BUS_TYPE_SESSION, G_BUS_TYPE_SYSTEM}) {
        GError* error = nullptr;
        EXPECT_EQ(g_bus_get_sync(type, nullptr, &error), nullptr) << type;
        ASSERT_NE(error, nullptr);
        EXPECT_TRUE(g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_FOUND)) << error->message;
        g_error_free(error);
    }
}

} // namespace quillary::test
