#import "platform/macos/MacScreens.h"

#import "platform/macos/CFOwned.h"
#include "platform/macos/DisplayNumber.h"
#import "platform/macos/MacText.h"
#import "platform/macos/NotificationToken.h"

#import <AppKit/AppKit.h>
#import <ColorSync/ColorSync.h>

namespace quillary {

namespace {

std::uint32_t numberOf(NSScreen* screen) {
    id described = [[screen deviceDescription] objectForKey:@"NSScreenNumber"];
    if (![described isKindOfClass:[NSNumber class]]) {
        return 0;
    }
    return displayNumber([described doubleValue]);
}

std::optional<std::string> uuidOf(std::uint32_t display) {
    const CFOwned<CFUUIDRef> uuid(CGDisplayCreateUUIDFromDisplayID(display));
    if (!uuid) {
        return std::nullopt;
    }
    const CFOwned<CFStringRef> text(CFUUIDCreateString(kCFAllocatorDefault, uuid.get()));
    const std::string plain = MacText::plain((__bridge NSString*)text.get());
    return plain.empty() ? std::nullopt : std::optional(plain);
}

QRectF converted(const ScreenCoordinates& coordinates, NSRect rect) {
    return coordinates.rect(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

} // namespace

struct MacScreens::Native {
    NotificationToken parameters;
};

MacScreens::MacScreens() : m_native(std::make_unique<Native>()) {
    m_native->parameters = NotificationToken([NSNotificationCenter defaultCenter],
                                             NSApplicationDidChangeScreenParametersNotification,
                                             [this](NSNotification*) { Q_EMIT changed(); });
}

MacScreens::~MacScreens() = default;

ScreenCoordinates MacScreens::coordinates() {
    // The first screen has the origin. +[NSScreen mainScreen] is the one with the focus.
    NSScreen* primary = [[NSScreen screens] firstObject];
    return ScreenCoordinates(primary == nil ? 0.0 : [primary frame].size.height);
}

std::vector<ScreenInfo> MacScreens::list() const {
    const ScreenCoordinates way = coordinates();
    std::vector<ScreenInfo> found;
    for (NSScreen* screen in [NSScreen screens]) {
        const std::uint32_t number = numberOf(screen);
        found.push_back({.displayNumber = number,
                         .uuid = uuidOf(number),
                         .name = MacText::plain([screen localizedName]),
                         .frame = converted(way, [screen frame]),
                         .visibleFrame = converted(way, [screen visibleFrame]),
                         .scale = [screen backingScaleFactor]});
    }
    return found;
}

} // namespace quillary
