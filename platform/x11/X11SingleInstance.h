#pragma once

#include "platform/SingleInstance.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11UserTime.h"

#include <optional>

namespace quillary {

class StartupNotification;

/// One instance per screen of an X server. The instance owns the selection _QUILLARY_Sn, where n is the
/// number of the screen (a manager selection of ICCCM 2.8), with a window that has the property
/// _QUILLARY_INSTANCE. A second process sends that window the client message _QUILLARY_REOPEN with the time
/// of its launch and a window of its own, and receives the same message in reply.
///
/// An owner without the property is not an instance and loses the selection. A client that takes the
/// selection from us can cause a second instance, but nothing worse.
class X11SingleInstance final : public SingleInstance {
    Q_OBJECT

public:
    X11SingleInstance(X11Connection& connection, const StartupNotification& startup);

    /// Waits up to `longestWait` for the running instance to answer. If it ends instead, this process takes
    /// over; if it does not answer in time, it is assumed to be busy, and the result is false.
    [[nodiscard]] bool claim() override;

    /// Milliseconds.
    static constexpr int longestWait = 3000;

private:
    enum class Answer { heard, gone };

    void createWindow();
    [[nodiscard]] xcb_window_t takeOrFindOwner();
    [[nodiscard]] Answer notify(xcb_window_t owner) const;
    void handleEvent(const xcb_generic_event_t* event);
    void confirm(xcb_window_t asker);
    void handleTime(xcb_timestamp_t now);

    X11Connection& m_connection;
    const StartupNotification& m_startup;
    X11UserTime m_userTime;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_mark = XCB_ATOM_NONE;
    xcb_atom_t m_reopen = XCB_ATOM_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    // The launch time in the last message; 0 when it had none.
    std::optional<xcb_timestamp_t> m_asked;
};

} // namespace quillary
