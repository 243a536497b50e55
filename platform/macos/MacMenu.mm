#import "platform/macos/MacMenu.h"

#include "platform/macos/LogLine.h"
#import "platform/macos/MacText.h"

#include <utility>

/// A menu item that holds the entry it represents.
@interface QuillaryMenuItem : NSMenuItem
@end

@implementation QuillaryMenuItem {
    quillary::Menu m_line;
    quillary::MacMenu::Chosen m_chosen;
}

- (void)standFor:(const quillary::ClosureMenuItem&)item chosen:(const quillary::MacMenu::Chosen&)chosen {
    m_line = {item};
    m_chosen = chosen;
    [self setTarget:self];
    [self setAction:@selector(fire:)];
}

- (void)fire:(id)sender {
    static_cast<void>(sender);
    // The handler may destroy the menu and this item.
    const quillary::Menu kept = m_line;
    const quillary::MacMenu::Chosen chosen = m_chosen;
    if (!kept.empty() && chosen) {
        chosen(kept.front());
    }
}

@end

namespace quillary::MacMenu {

namespace {

NSString* titleOf(const ClosureMenuItem& item) {
    // Line breaks and control characters become spaces.
    return MacText::native(logLine(item.title));
}

NSMenuItem* nativeItem(const ClosureMenuItem& item, const Chosen& chosen) {
    if (item.kind == ClosureMenuItem::Kind::separator) {
        return [NSMenuItem separatorItem];
    }
    const std::string key = item.keyEquivalent == 0 ? std::string() : std::string(1, item.keyEquivalent);
    QuillaryMenuItem* made = [[QuillaryMenuItem alloc] initWithTitle:titleOf(item)
                                                              action:nil
                                                       keyEquivalent:MacText::native(key)];
    [made setEnabled:item.enabled ? YES : NO];
    [made setState:item.checked ? NSControlStateValueOn : NSControlStateValueOff];
    if (item.kind == ClosureMenuItem::Kind::submenu) {
        [made setSubmenu:make(item.items, chosen)];
    } else {
        [made standFor:item chosen:chosen];
    }
    return made;
}

} // namespace

NSMenu* make(const Menu& items, const Chosen& chosen) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:@""];
    [menu setAutoenablesItems:NO];
    fill(menu, items, chosen);
    return menu;
}

void fill(NSMenu* menu, const Menu& items, const Chosen& chosen) {
    [menu removeAllItems];
    for (const auto& item : items) {
        [menu addItem:nativeItem(item, chosen)];
    }
}

} // namespace quillary::MacMenu
