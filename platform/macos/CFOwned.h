#pragma once

#include <memory>
#include <type_traits>

#import <CoreFoundation/CoreFoundation.h>

namespace quillary {

struct CFReleaser {
    void operator()(CFTypeRef reference) const { CFRelease(reference); }
};

/// Owns an object that one of CoreFoundation's "Create" or "Copy" functions returned.
template<typename Reference>
using CFOwned = std::unique_ptr<std::remove_pointer_t<Reference>, CFReleaser>;

} // namespace quillary
