#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>

#include <string>

namespace quillary {

/// Watches whether a program owns one of the screen's manager selections (ICCCM 2.8), by which compositors
/// and trays announce themselves. The name of such a selection ends in "_S" and the screen's number.
class X11SelectionOwner final : public QObject {
    Q_OBJECT

public:
    /// `name` is the selection's name without "_S" and the number. Without the XFIXES extension the owner is
    /// never present.
    X11SelectionOwner(X11Connection& connection, const std::string& name);

    [[nodiscard]] bool isPresent() const { return m_present; }

Q_SIGNALS:
    /// `isPresent` changed.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);

    X11Connection& m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    int m_selectionEvent = -1;
    bool m_present = false;
};

} // namespace quillary
