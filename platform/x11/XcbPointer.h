#pragma once

#include <cstdlib>
#include <memory>

namespace quillary {

/// Frees memory that xcb allocated with malloc.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// Owns a reply or an event of xcb. Null for a failed request.
template<typename T>
using XcbPointer = std::unique_ptr<T, XcbFree>;

} // namespace quillary
