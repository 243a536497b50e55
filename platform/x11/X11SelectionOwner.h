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
    X11SelectionOwner(X11Connection& server, const std::string& name);

    [[nodiscard]] bool isPresent() const { return present; }

Q_SIGNALS:
    /// The owner came or went.
    void changed();

private:
    void handleEvent(const xcb_generic_event_t* event);

    X11Connection& connection;
    xcb_atom_t selection = XCB_ATOM_NONE;
    int selectionEvent = -1;
    bool present = false;
};

} // namespace quillary
