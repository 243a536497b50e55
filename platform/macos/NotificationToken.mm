#import "platform/macos/NotificationToken.h"

#include <utility>

namespace quillary {

NotificationToken::NotificationToken(NSNotificationCenter* center, NSNotificationName name, Handler called)
    : handler(std::make_shared<Handler>(std::move(called))), observed(center) {
    const std::weak_ptr<Handler> waiting = handler;
    token = [center addObserverForName:name
                                object:nil
                                 queue:[NSOperationQueue mainQueue]
                            usingBlock:^(NSNotification* notification) {
                              if (const auto held = waiting.lock()) {
                                  (*held)(notification);
                              }
                            }];
}

NotificationToken::NotificationToken(NotificationToken&& other) noexcept
    : handler(std::move(other.handler)),
      observed(std::exchange(other.observed, nil)),
      token(std::exchange(other.token, nil)) {}

NotificationToken& NotificationToken::operator=(NotificationToken&& other) noexcept {
    std::swap(handler, other.handler);
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
