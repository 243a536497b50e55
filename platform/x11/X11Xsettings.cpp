#include "platform/x11/X11Xsettings.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/XsettingsText.h"

namespace quillary {

namespace {

// Managers publish some 2 KiB.
constexpr std::uint32_t mostBytes = 65536;

} // namespace

std::string xsettingsIconTheme(X11Connection& connection) {
    auto* xcb = connection.xcb();
    const auto selection = internAtom(xcb, "_XSETTINGS_S" + std::to_string(connection.screenNumber()));
    const auto property = internAtom(xcb, "_XSETTINGS_SETTINGS");
    const auto manager =
        connection.reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(xcb, selection));
    if (!manager || manager->owner == XCB_WINDOW_NONE) {
        return {};
    }
    const auto settings =
        readProperty(connection, requestProperty(connection, manager->owner, property, mostBytes));
    return xsettingsText(settings.bytes, "Net/IconThemeName").value_or("");
}

} // namespace quillary
