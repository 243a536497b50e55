#pragma once

#include "platform/x11/X11Atoms.h"
#include "platform/x11/XcbPointer.h"

#include <QObject>

#include <xcb/xcb.h>

#include <deque>
#include <memory>

class QSocketNotifier;

namespace quillary {

/// A connection of our own to the X server of the session, beside Qt's. Its events are told by a signal on
/// the main thread. A failed request or a vanished window is no error here: replies are null and errors are
/// dropped. When the server goes away the application is asked to quit.
class X11Connection final : public QObject {
    Q_OBJECT

public:
    /// Connects to the display that DISPLAY names; null when there is none.
    [[nodiscard]] static std::unique_ptr<X11Connection> open();
    ~X11Connection() override;

    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    [[nodiscard]] const X11Atoms& atoms() const { return m_atoms; }

    /// Waits for the reply of a request; null when it failed. Events that arrive meanwhile are kept and told
    /// later, from the event loop.
    template<typename Reply, typename Cookie>
    [[nodiscard]] XcbPointer<Reply> reply(Reply* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                                          Cookie cookie) {
        XcbPointer<Reply> result(wait(m_xcb, cookie, nullptr));
        keepQueuedEvents();
        return result;
    }
    /// Sends all requests made so far.
    void flush();

    /// Whether events wake the program. While it does not listen, events wait until `dispatch` or until it
    /// listens.
    enum class Listening { on, off };
    void setListening(Listening state);
    /// Tells the events that have arrived; returns how many.
    int dispatch();

    /// Whether the window was created by this program: by Qt's connection or one of ours. Asks no server.
    [[nodiscard]] static bool isOwnWindow(xcb_window_t window);

Q_SIGNALS:
    /// One event, valid during the call. Response types still carry the bit of sent events (0x80).
    void eventReceived(const xcb_generic_event_t* event);
    /// All events that were waiting have been told: the moment to read what they made stale.
    void settled();
    /// The server went away. The application has been asked to quit.
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
    bool m_quitTold = false;
};

/// The root window of a screen, of the last one when there are not as many. Any thread.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection, int screenNumber);

/// The event's kind without the bit that marks events sent by clients.
[[nodiscard]] inline int eventKind(const xcb_generic_event_t* event) {
    return event->response_type & 0x7f;
}

/// The event as the structure that its kind names.
template<typename Event>
[[nodiscard]] const Event* eventAs(const xcb_generic_event_t* event) {
    return reinterpret_cast<const Event*>(event);
}

} // namespace quillary
