#pragma once

// What the backend calls of CoreGraphics, as Apple documents it.
#include <CoreFoundation/CoreFoundation.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// The macOS ABI of 64 bits counts points in doubles.
typedef double CGFloat;

typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;

typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;

typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;

typedef uint32_t CGDirectDisplayID;

typedef struct CGContext* CGContextRef;
typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGImage* CGImageRef;

typedef CF_ENUM(uint32_t, CGImageAlphaInfo) {
    kCGImageAlphaPremultipliedFirst = 2,
};

typedef CF_OPTIONS(uint32_t, CGBitmapInfo) {
    kCGBitmapByteOrder32Little = (2 << 12),
};

extern const CFStringRef _Nonnull kCGColorSpaceSRGB;

CGColorSpaceRef _Nullable CGColorSpaceCreateWithName(CFStringRef _Nullable name) CF_RETURNS_RETAINED;
void CGColorSpaceRelease(CGColorSpaceRef _Nullable space);
CGContextRef _Nullable CGBitmapContextCreate(void* _Nullable data, size_t width, size_t height,
                                             size_t bitsPerComponent, size_t bytesPerRow,
                                             CGColorSpaceRef _Nullable space,
                                             uint32_t bitmapInfo) CF_RETURNS_RETAINED;
void CGContextRelease(CGContextRef _Nullable c);
void CGImageRelease(CGImageRef _Nullable image);

#ifdef __cplusplus
}
#endif
