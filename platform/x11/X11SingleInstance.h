#pragma once

#include "platform/SingleInstance.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11UserTime.h"

#include <optional>

namespace quillary {

class StartupNotification;

/// One running program on each screen of an X server: it owns the selection _QUILLARY_Sn (n is the number of
/// the screen), as ICCCM 2.8 has it for managers, by a window that bears the property _QUILLARY_INSTANCE. A
/// second start sends that window a client message _QUILLARY_REOPEN with the moment of the start and its own
/// window, and gets the same message back.
///
/// An owner without the property is another program's, and loses the selection. A program that takes the
/// selection from us can bring about a second start, and nothing worse.
class X11SingleInstance final : public SingleInstance {
    Q_OBJECT

public:
    X11SingleInstance(X11Connection& connection, const StartupNotification& startup);

    /// Waits up to `longestWait` for the one that runs. When that ends instead of answering, this process
    /// takes its place; when it keeps silent it is believed to be busy.
    [[nodiscard]] bool claim() override;

    /// Milliseconds.
    static constexpr int longestWait = 3000;

private:
    enum class Answer { heard, gone };

    void createWindow();
    [[nodiscard]] xcb_window_t takeOrFindOwner();
    [[nodiscard]] Answer tell(xcb_window_t owner) const;
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
    // The moment that the last message told; 0 when it told none.
    std::optional<xcb_timestamp_t> m_asked;
};

} // namespace quillary
