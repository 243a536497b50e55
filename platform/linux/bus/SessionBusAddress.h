#pragma once

/// The address of the session bus in this process's environment, where both D-Bus libraries look it up.
namespace quillary::SessionBusAddress {

/// Keeps the libraries from launching a bus. The D-Bus standard lets a client whose session names no bus
/// run dbus-launch ("autolaunch"); the bus would outlive the program. When the session has no bus, neither in
/// DBUS_SESSION_BUS_ADDRESS nor as the socket $XDG_RUNTIME_DIR/bus, the variable gets an address at which
/// nothing listens, so that connecting fails at once. To be called before other threads or a QApplication
/// exist.
void forbidLaunch();

/// Whether forbidLaunch() set the variable; programs that we launch must not inherit it then.
[[nodiscard]] bool isStandIn();

} // namespace quillary::SessionBusAddress
