#pragma once

#include <functional>

#import <Foundation/Foundation.h>

namespace quillary {

/// An observation of a notification centre, delivered on the main queue; it ends with this.
class NotificationToken {
public:
    NotificationToken() = default;
    NotificationToken(NSNotificationCenter* center, NSNotificationName name,
                      std::function<void(NSNotification*)> handler);
    NotificationToken(const NotificationToken&) = delete;
    NotificationToken& operator=(const NotificationToken&) = delete;
    NotificationToken(NotificationToken&& other) noexcept;
    NotificationToken& operator=(NotificationToken&& other) noexcept;
    ~NotificationToken();

private:
    NSNotificationCenter* observed = nil;
    id token = nil;
};

} // namespace quillary
