#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <QWindow>

#include <xcb/xcb.h>

#include <functional>
#include <memory>

namespace quillary {

/// Lets the toolkit know of a moment at which the user asked for something elsewhere. It stamps the requests
/// that bring a window to the front with the last moment that it knows of, and window managers refuse the
/// ones that are older than what the user did since.
class X11UserTime final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11UserTime();
    ~X11UserTime() override;

    /// Tells it the moment (X server's time, which must not lie in the future), then calls `told` from the
    /// event loop, once; after a second even if the server says nothing. A later call takes the place of one
    /// that is under way.
    void tell(xcb_timestamp_t time, std::function<void()> told);

private:
    [[nodiscard]] bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void finish();

    // Never shown: the toolkit hears through a window only.
    std::unique_ptr<QWindow> m_window;
    std::function<void()> m_pending;
    QTimer m_deadline;
};

} // namespace quillary
