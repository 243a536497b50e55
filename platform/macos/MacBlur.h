#pragma once

#include <QRegion>
#include <QSize>

#import <AppKit/AppKit.h>

namespace quillary {

/// Blurs what lies behind a region of a window, by a view under the window's contents.
class MacBlur {
public:
    MacBlur() = default;
    MacBlur(const MacBlur&) = delete;
    MacBlur& operator=(const MacBlur&) = delete;
    ~MacBlur();

    /// Shows the blur in a region of contents of this size, in points with the origin top-left. An empty
    /// region hides it. Calling it again with equal values is free.
    void show(const QRegion& region, QSize size, NSWindow* window);

private:
    NSVisualEffectView* m_view = nil;
    QRegion m_region;
    QSize m_size;
};

} // namespace quillary
