#pragma once

#include "platform/linux/launch/StartupNotification.h"

#include <QObject>

#include <cstdint>

namespace quillary {

/// Startup notification on X11: client messages to the root window, and the X server's time of the last click
/// or key in one of this program's windows.
///
/// The protocol knows no monitor. A click is where the pointer is, and there window managers place new
/// windows when they are set to follow the pointer; nothing else can be asked of them.
class X11StartupNotification final : public QObject, public StartupNotification {
    Q_OBJECT

public:
    /// Watches the application's events. The number is that of the X screen.
    explicit X11StartupNotification(int screenNumber);
    ~X11StartupNotification() override;

    /// Its functions connect to the X server for the moment of the call, so that they depend on nothing in
    /// this thread.
    [[nodiscard]] StartupOrigin origin() const override;

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int m_screenNumber;
    std::uint32_t m_lastInput = 0;
};

} // namespace quillary
