#include "platform/linux/bus/SessionBusAddress.h"
#include "platform/select/PlatformSelection.h"
#include "platform/x11/X11Platform.h"

#include <QByteArray>

#include <cstdio>

namespace quillary {

void prepareEnvironment() {
    SessionBusAddress::forbidLaunch();
}

bool sessionHasWindowSystem() {
    // A toolkit backend that was chosen by hand reports its own failures.
    const QByteArray backend = qgetenv("QT_QPA_PLATFORM");
    if (!backend.isEmpty() && !backend.startsWith("xcb")) {
        return true;
    }
    const bool reachable = X11Platform::serverIsReachable();
    if (!reachable) {
        std::fputs("Quillary: no X server can be reached.\n", stderr);
    }
    return reachable;
}

std::unique_ptr<Platform> makePlatform() {
    return X11Platform::open();
}

} // namespace quillary
