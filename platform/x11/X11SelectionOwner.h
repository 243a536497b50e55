#pragma once

#include "platform/x11/X11Connection.h"

#include <QObject>

#include <string>

namespace quillary {

/// Whether some program owns a manager selection of the screen (ICCCM 2.8), whose name ends in "_S" and the
/// screen's number: compositors and trays show themselves that way.
class X11SelectionOwner final : public QObject {
    Q_OBJECT

public:
    /// The name is given without the number.
    X11SelectionOwner(X11Connection& connection, const std::string& name);

    [[nodiscard]] bool isPresent() const { return m_present; }

Q_SIGNALS:
    /// The owner came or went.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);

    X11Connection& m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    int m_selectionEvent = -1;
    bool m_present = false;
};

} // namespace quillary
