#pragma once

#include "core/Result.h"

#include <gtest/gtest.h>

namespace quillary::test {

/// For EXPECT_TRUE and ASSERT_TRUE: prints the error when there is one.
template<typename T>
[[nodiscard]] testing::AssertionResult succeeded(const Result<T>& result) {
    return result ? testing::AssertionSuccess() : testing::AssertionFailure() << result.error();
}

} // namespace quillary::test
