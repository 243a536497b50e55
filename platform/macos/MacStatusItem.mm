#import "platform/macos/MacStatusItem.h"

#import "platform/macos/MacIcon.h"
#import "platform/macos/MacMenu.h"
#import "platform/macos/MacText.h"

#include <utility>

#import <AppKit/AppKit.h>

/// Fills the menu each time before it opens.
@interface QuillaryMenuSource : NSObject <NSMenuDelegate>
@end

@implementation QuillaryMenuSource {
    std::function<quillary::Menu()> m_source;
}

- (void)ask:(std::function<quillary::Menu()>)menuSource {
    m_source = std::move(menuSource);
}

- (void)menuNeedsUpdate:(NSMenu*)menu {
    quillary::MacMenu::fill(menu, m_source ? m_source() : quillary::Menu(),
                            [](const quillary::ClosureMenuItem& item) { item.fire(); });
}

@end

namespace quillary {

namespace {

// The height of images in the menu bar, in points.
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
    // The menu does not retain its delegate.
    QuillaryMenuSource* source = nil;
};

MacStatusItem::MacStatusItem(const QIcon& symbol, const std::string& description,
                             std::function<Menu()> menuNeedsUpdate)
    : m_native(std::make_unique<Native>()) {
    m_native->source = [[QuillaryMenuSource alloc] init];
    [m_native->source ask:std::move(menuNeedsUpdate)];
    NSMenu* menu = MacMenu::make({}, nullptr);
    [menu setDelegate:m_native->source];

    m_native->item = [[NSStatusBar systemStatusBar] statusItemWithLength:NSSquareStatusItemLength];
    [[m_native->item button] setImage:symbolImage(symbol, description)];
    [m_native->item setMenu:menu];
}

MacStatusItem::~MacStatusItem() {
    [[m_native->item menu] setDelegate:nil];
    [[NSStatusBar systemStatusBar] removeStatusItem:m_native->item];
}

bool MacStatusItem::isShown() const {
    return [m_native->item isVisible];
}

} // namespace quillary
