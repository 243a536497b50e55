#import "platform/macos/NotificationToken.h"

#include <utility>

namespace quillary {

NotificationToken::NotificationToken(NSNotificationCenter* center, NSNotificationName name,
                                     std::function<void(NSNotification*)> handler)
    : observed(center),
      token([center addObserverForName:name
                                object:nil
                                 queue:[NSOperationQueue mainQueue]
                            usingBlock:^(NSNotification* notification) {
                              handler(notification);
                            }]) {}

NotificationToken::NotificationToken(NotificationToken&& other) noexcept
    : observed(std::exchange(other.observed, nil)), token(std::exchange(other.token, nil)) {}

NotificationToken& NotificationToken::operator=(NotificationToken&& other) noexcept {
    std::swap(observed, other.observed);
    std::swap(token, other.token);
    return *this;
}

NotificationToken::~NotificationToken() {
    if (token != nil) {
        [observed removeObserver:token];
    }
}

} // namespace quillary
