#pragma once

#include <QRegion>
#include <QSize>

#import <AppKit/AppKit.h>

namespace quillary {

/// A blurred picture of what lies behind a window, seen in a region of it. It stands under the window's
/// contents.
class MacBlur {
public:
    MacBlur() = default;
    MacBlur(const MacBlur&) = delete;
    MacBlur& operator=(const MacBlur&) = delete;
    ~MacBlur();

    /// Points of the contents, origin top-left. Setting the same again costs nothing.
    void show(const QRegion& region, QSize size, NSWindow* window);

private:
    NSVisualEffectView* m_view = nil;
    QRegion m_region;
    QSize m_size;
};

} // namespace quillary
