#pragma once

#include <functional>
#include <memory>

#import <Foundation/Foundation.h>

namespace quillary {

/// Observes a notification centre during its lifetime. The handler runs on the main queue. Create and destroy
/// it on the main thread.
class NotificationToken {
public:
    using Handler = std::function<void(NSNotification*)>;

    NotificationToken() = default;
    NotificationToken(NSNotificationCenter* center, NSNotificationName name, Handler handler);
    NotificationToken(const NotificationToken&) = delete;
    NotificationToken& operator=(const NotificationToken&) = delete;
    NotificationToken(NotificationToken&& other) noexcept;
    NotificationToken& operator=(NotificationToken&& other) noexcept;
    ~NotificationToken();

private:
    // Observers hold a weak reference, so that a queued notification has no effect after destruction.
    std::shared_ptr<Handler> m_handler;
    NSNotificationCenter* m_center = nil;
    id m_token = nil;
};

} // namespace quillary
