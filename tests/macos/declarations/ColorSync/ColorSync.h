#pragma once

// What the backend calls of ColorSync, as Apple documents it.
#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#endif

// The display's identity; null when it has none.
CFUUIDRef _Nullable CGDisplayCreateUUIDFromDisplayID(uint32_t displayID) CF_RETURNS_RETAINED;

#ifdef __cplusplus
}
#endif
