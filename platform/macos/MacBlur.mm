#import "platform/macos/MacBlur.h"

namespace quillary {

namespace {

// Opaque where the blur is seen.
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
    // The window never has the focus, which would leave the material grey.
    [made setState:NSVisualEffectStateActive];
    [made setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [[contents superview] addSubview:made positioned:NSWindowBelow relativeTo:contents];
    return made;
}

} // namespace

MacBlur::~MacBlur() {
    [view removeFromSuperview];
}

void MacBlur::show(const QRegion& region, QSize size, NSWindow* window) {
    NSView* contents = [window contentView];
    const bool elsewhere = view != nil && [view superview] != [contents superview];
    if (region == shown && size == shownSize && !elsewhere) {
        return;
    }
    shown = region;
    shownSize = size;
    if (elsewhere) {
        [view removeFromSuperview];
        view = nil;
    }
    if (region.isEmpty() || size.isEmpty() || contents == nil) {
        [view setHidden:YES];
        return;
    }
    if (view == nil) {
        view = makeView(contents);
    }
    [view setHidden:NO];
    [view setMaskImage:maskOf(region, size)];
}

} // namespace quillary
