#pragma once

#include <memory>

namespace quillary {

/// Calls one function of a C library on destruction.
template<auto release>
struct Releaser {
    template<typename T>
    void operator()(T* object) const {
        release(object);
    }
};

/// Owns an object of a C library that `release` gives back: `Released<GKeyFile, g_key_file_unref>`.
template<typename T, auto release>
using Released = std::unique_ptr<T, Releaser<release>>;

} // namespace quillary
