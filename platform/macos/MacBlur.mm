#import "platform/macos/MacBlur.h"

namespace quillary {

namespace {

// Opaque where the blur is visible.
NSImage* maskOf(const QRegion& region, QSize size) {
    return [NSImage imageWithSize:NSMakeSize(size.width(), size.height())
                          flipped:YES
                   drawingHandler:^BOOL(NSRect) {
                     [[NSColor blackColor] setFill];
                     for (const QRect& part : region) {
                         NSRectFill(NSMakeRect(part.x(), part.y(), part.width(), part.height()));
                     }
                     return YES;
                   }];
}

NSVisualEffectView* makeView(NSView* contents) {
    NSVisualEffectView* made = [[NSVisualEffectView alloc] initWithFrame:[contents frame]];
    [made setMaterial:NSVisualEffectMaterialPopover];
    [made setBlendingMode:NSVisualEffectBlendingModeBehindWindow];
    // By default the material is grey in a window without the focus.
    [made setState:NSVisualEffectStateActive];
    [made setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [[contents superview] addSubview:made positioned:NSWindowBelow relativeTo:contents];
    return made;
}

} // namespace

MacBlur::~MacBlur() {
    [m_view removeFromSuperview];
}

void MacBlur::show(const QRegion& region, QSize size, NSWindow* window) {
    NSView* contents = [window contentView];
    const bool elsewhere = m_view != nil && [m_view superview] != [contents superview];
    if (region == m_region && size == m_size && !elsewhere) {
        return;
    }
    m_region = region;
    m_size = size;
    if (elsewhere) {
        [m_view removeFromSuperview];
        m_view = nil;
    }
    if (region.isEmpty() || size.isEmpty() || contents == nil) {
        [m_view setHidden:YES];
        return;
    }
    if (m_view == nil) {
        m_view = makeView(contents);
    }
    [m_view setHidden:NO];
    [m_view setMaskImage:maskOf(region, size)];
}

} // namespace quillary
