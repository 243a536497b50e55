#pragma once

#include <functional>
#include <memory>

#import <Foundation/Foundation.h>

namespace quillary {

/// An observation of a notification centre, delivered on the main queue; it ends with this. To be made and
/// destroyed on the main thread.
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
    // Gone with this, so that a notification which waits in the queue calls nobody.
    std::shared_ptr<Handler> m_handler;
    NSNotificationCenter* m_center = nil;
    id m_token = nil;
};

} // namespace quillary
