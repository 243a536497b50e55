#pragma once

#include <string>
#include <tl/expected.hpp>

namespace quillary {

/// What an operation on the outside world (a file, a service, another program) came to: its value, or the
/// text of the error in UTF-8, without a line break, fit for the end of a line of the log. Converts to true
/// on success. The interface is that of C++23's std::expected.
template<typename T = void>
using Result = tl::expected<T, std::string>;

/// Converts to a failed `Result` of any type: `return Failure("the reason");`.
using Failure = tl::unexpected<std::string>;

} // namespace quillary
