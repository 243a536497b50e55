#pragma once

#include "platform/linux/launch/StartupNotification.h"

#include <QObject>

#include <cstdint>

namespace quillary {

/// Startup notification on X11: client messages to the root window, and the X server's time of the last
/// button or key event in one of this program's windows.
///
/// The protocol cannot name a monitor. A click on a dock leaves the pointer on the right one, where window
/// managers place new windows if they are configured to follow the pointer.
class X11StartupNotification final : public QObject, public StartupNotification {
    Q_OBJECT

public:
    /// Watches the QApplication's events. `screenNumber` is that of the X screen.
    explicit X11StartupNotification(int screenNumber);
    ~X11StartupNotification() override;

    /// The functions of the result open a connection for each call and may run on any thread.
    [[nodiscard]] StartupOrigin origin() const override;

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int m_screenNumber;
    std::uint32_t m_lastInput = 0;
};

} // namespace quillary
