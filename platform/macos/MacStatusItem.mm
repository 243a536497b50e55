#import "platform/macos/MacStatusItem.h"

#import "platform/macos/MacIcon.h"
#import "platform/macos/MacMenu.h"
#import "platform/macos/MacText.h"

#include <utility>

#import <AppKit/AppKit.h>

/// Fills the menu just before each opening.
@interface QuillaryMenuSource : NSObject <NSMenuDelegate>
@end

@implementation QuillaryMenuSource {
    std::function<quillary::Menu()> source;
}

- (void)ask:(std::function<quillary::Menu()>)menuSource {
    source = std::move(menuSource);
}

- (void)menuNeedsUpdate:(NSMenu*)menu {
    quillary::MacMenu::fill(menu, source ? source() : quillary::Menu(),
                            [](const quillary::ClosureMenuItem& item) { item.fire(); });
}

@end

namespace quillary {

namespace {

// The height of pictures in the menu bar, points.
constexpr int symbolSide = 18;

NSImage* symbolImage(const QIcon& fallback, const std::string& description) {
    NSString* name = MacText::native(description);
    NSImage* system = [NSImage imageWithSystemSymbolName:@"dock.rectangle" accessibilityDescription:name];
    if (system != nil) {
        return system;
    }
    NSImage* own = MacIcon::image(fallback, symbolSide);
    [own setAccessibilityDescription:name];
    return own;
}

} // namespace

struct MacStatusItem::Native {
    NSStatusItem* item = nil;
    // The menu does not keep its delegate.
    QuillaryMenuSource* source = nil;
};

MacStatusItem::MacStatusItem(const QIcon& symbol, const std::string& description,
                             std::function<Menu()> menuNeedsUpdate)
    : native(std::make_unique<Native>()) {
    native->source = [[QuillaryMenuSource alloc] init];
    [native->source ask:std::move(menuNeedsUpdate)];
    NSMenu* menu = MacMenu::make({}, nullptr);
    [menu setDelegate:native->source];

    native->item = [[NSStatusBar systemStatusBar] statusItemWithLength:NSSquareStatusItemLength];
    [[native->item button] setImage:symbolImage(symbol, description)];
    [native->item setMenu:menu];
}

MacStatusItem::~MacStatusItem() {
    [[native->item menu] setDelegate:nil];
    [[NSStatusBar systemStatusBar] removeStatusItem:native->item];
}

bool MacStatusItem::isShown() const {
    return [native->item isVisible];
}

} // namespace quillary
