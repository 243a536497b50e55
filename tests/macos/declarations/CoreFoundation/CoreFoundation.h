#pragma once

// What the backend calls of CoreFoundation, as Apple documents it.
#include <Availability.h>
#include <TargetConditionals.h>
#include <stdbool.h>
#include <stdint.h>
#include <sys/types.h>

#define CF_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define CF_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
#define CF_BRIDGED_TYPE(type) __attribute__((objc_bridge(type)))
#define CF_ENUM(type, name)                                                                                  \
    enum name : type name;                                                                                   \
    enum name : type
// In C++ a set of options is its integer, so that options can be combined.
#define CF_OPTIONS(type, name)                                                                               \
    type name;                                                                                               \
    enum : type

#ifdef __cplusplus
extern "C" {
#endif

CF_ASSUME_NONNULL_BEGIN

typedef unsigned char Boolean;
typedef long CFIndex;
typedef unsigned long CFTypeID;
typedef double CFTimeInterval;

typedef const void* CFTypeRef;
typedef const struct CF_BRIDGED_TYPE(NSString) __CFString* CFStringRef;
typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFBoolean* CFBooleanRef;
typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFNumber* CFNumberRef;
typedef const struct CF_BRIDGED_TYPE(id) __CFUUID* CFUUIDRef;
typedef const struct CF_BRIDGED_TYPE(id) __CFAllocator* CFAllocatorRef;
typedef CFTypeRef CFPropertyListRef;

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFBooleanRef kCFBooleanTrue;
extern const CFBooleanRef kCFBooleanFalse;

typedef CF_ENUM(CFIndex, CFNumberType) {
    kCFNumberDoubleType = 13,
};

void CFRelease(CFTypeRef cf);
CFTypeID CFGetTypeID(CFTypeRef cf);

// A constant string of the compiler's own making.
#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))

CFTypeID CFBooleanGetTypeID(void);
Boolean CFBooleanGetValue(CFBooleanRef boolean);

CFTypeID CFNumberGetTypeID(void);
CFNumberRef _Null_unspecified CFNumberCreate(CFAllocatorRef _Nullable allocator, CFNumberType theType,
                                             const void* _Null_unspecified valuePtr) CF_RETURNS_RETAINED;
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType theType, void* _Null_unspecified valuePtr);

CFStringRef _Null_unspecified CFUUIDCreateString(CFAllocatorRef _Nullable alloc,
                                                 CFUUIDRef _Null_unspecified uuid) CF_RETURNS_RETAINED;

CFPropertyListRef _Nullable CFPreferencesCopyAppValue(CFStringRef key,
                                                      CFStringRef applicationID) CF_RETURNS_RETAINED;
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef _Nullable value, CFStringRef applicationID);
Boolean CFPreferencesAppSynchronize(CFStringRef applicationID);

CF_ASSUME_NONNULL_END

#ifdef __cplusplus
}
#endif
