#pragma once

#include <cstdlib>
#include <memory>

namespace quillary {

/// Frees what xcb allocated with malloc.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or an event of xcb; null when the request failed.
template<typename T>
using XcbPointer = std::unique_ptr<T, XcbFree>;

} // namespace quillary
