#import "platform/macos/NotificationToken.h"

#include <utility>

namespace quillary {

NotificationToken::NotificationToken(NSNotificationCenter* center, NSNotificationName name, Handler handler)
    : m_handler(std::make_shared<Handler>(std::move(handler))), m_center(center) {
    const std::weak_ptr<Handler> waiting = m_handler;
    m_token = [center addObserverForName:name
                                  object:nil
                                   queue:[NSOperationQueue mainQueue]
                              usingBlock:^(NSNotification* notification) {
                                if (const auto held = waiting.lock()) {
                                    (*held)(notification);
                                }
                              }];
}

NotificationToken::NotificationToken(NotificationToken&& other) noexcept
    : m_handler(std::move(other.m_handler)),
      m_center(std::exchange(other.m_center, nil)),
      m_token(std::exchange(other.m_token, nil)) {}

NotificationToken& NotificationToken::operator=(NotificationToken&& other) noexcept {
    std::swap(m_handler, other.m_handler);
    std::swap(m_center, other.m_center);
    std::swap(m_token, other.m_token);
    return *this;
}

NotificationToken::~NotificationToken() {
    if (m_token != nil) {
        [m_center removeObserver:m_token];
    }
}

} // namespace quillary
