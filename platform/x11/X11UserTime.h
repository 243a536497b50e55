#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <QWindow>

#include <xcb/xcb.h>

#include <functional>
#include <memory>

namespace quillary {

/// Informs Qt of the time of a user action that it did not see, such as a launch from another program. Qt
/// stamps its requests to raise a window with the latest user time that it knows, and window managers refuse
/// requests that are older than the user's last action.
class X11UserTime final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11UserTime();
    ~X11UserTime() override;

    /// Sets Qt's user time (X server's clock; not in the future), then calls `announced` once from the event
    /// loop, after a second at the latest. A call replaces a previous one that has not finished.
    void announce(xcb_timestamp_t time, std::function<void()> announced);

private:
    [[nodiscard]] bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void finish();

    // Never shown. Qt receives the event through it.
    std::unique_ptr<QWindow> m_window;
    std::function<void()> m_pending;
    QTimer m_deadline;
};

} // namespace quillary
