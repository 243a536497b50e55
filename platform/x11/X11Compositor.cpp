#include "platform/x11/X11Compositor.h"

namespace quillary {

X11Compositor::X11Compositor(X11Connection& server) : owner(server, "_NET_WM_CM") {
    connect(&owner, &X11SelectionOwner::changed, this, &X11Compositor::changed);
}

} // namespace quillary
