#pragma once

#include "platform/x11/X11Atoms.h"
#include "platform/x11/XcbPointer.h"

#include <QObject>

#include <xcb/xcb.h>

#include <deque>
#include <memory>

class QSocketNotifier;

namespace quillary {

/// A connection to the session's X server in addition to Qt's. It reports events by a signal on the main
/// thread. Failed requests and destroyed windows are not errors here: replies are null, and error events are
/// discarded. When the connection breaks, the application is asked to quit.
class X11Connection final : public QObject {
    Q_OBJECT

public:
    /// Connects to the display that DISPLAY names; null on failure.
    [[nodiscard]] static std::unique_ptr<X11Connection> open();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    [[nodiscard]] const X11Atoms& atoms() const { return m_atoms; }

    /// Waits for the reply to a request; null when the request failed. Events that arrive meanwhile are
    /// queued and emitted later from the event loop.
    template<typename Reply, typename Cookie>
    [[nodiscard]] XcbPointer<Reply> reply(Reply* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                                          Cookie cookie) {
        XcbPointer<Reply> result(wait(m_xcb, cookie, nullptr));
        keepQueuedEvents();
        return result;
    }
    /// Sends all buffered requests.
    void flush();

    /// Whether arriving events wake the program. While listening is off, events wait until `dispatch` is
    /// called or listening is on again.
    enum class Listening { on, off };
    void setListening(Listening state);
    /// Emits the events that have arrived; returns their number.
    int dispatch();

    /// Whether this program created the window, on Qt's connection or one of ours. No round trip.
    [[nodiscard]] static bool isOwnWindow(xcb_window_t window);

Q_SIGNALS:
    /// An event arrived. It is valid during the call; its response type includes the bit 0x80 if a client
    /// sent it.
    void eventReceived(const xcb_generic_event_t* event);
    /// All events that had arrived have been emitted. Data that they invalidated should be read now.
    void settled();
    /// The connection broke. The application has been asked to quit.
    void lost();

private:
    X11Connection(xcb_connection_t* xcb, int screenNumber, xcb_window_t root);
    void keepQueuedEvents();
    void checkAlive();
    static void quitAtExit();

    xcb_connection_t* m_xcb;
    int m_screenNumber;
    xcb_window_t m_root;
    X11Atoms m_atoms;
    QSocketNotifier* m_notifier;
    std::deque<XcbPointer<xcb_generic_event_t>> m_pending;
    bool m_dispatchPlanned = false;
    bool m_alive = true;
    bool m_quitSignalled = false;
};

/// The root window of a screen; that of the last screen when the number is too large. Any thread.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection, int screenNumber);

/// The event's type without the bit that marks events sent by clients.
[[nodiscard]] inline int eventKind(const xcb_generic_event_t* event) {
    return event->response_type & 0x7f;
}

/// The event as the structure of its type.
template<typename Event>
[[nodiscard]] const Event* eventAs(const xcb_generic_event_t* event) {
    return reinterpret_cast<const Event*>(event);
}

} // namespace quillary
