#include "platform/x11/X11Atoms.h"

#include "platform/x11/XcbPointer.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace quillary {

namespace {

struct Entry {
    xcb_atom_t X11Atoms::*field;
    std::string_view name;
};

constexpr std::array entries = {
    Entry{&X11Atoms::netSupported, "_NET_SUPPORTED"},
    Entry{&X11Atoms::netSupportingWmCheck, "_NET_SUPPORTING_WM_CHECK"},
    Entry{&X11Atoms::netClientList, "_NET_CLIENT_LIST"},
    Entry{&X11Atoms::netClientListStacking, "_NET_CLIENT_LIST_STACKING"},
    Entry{&X11Atoms::netActiveWindow, "_NET_ACTIVE_WINDOW"},
    Entry{&X11Atoms::netCurrentDesktop, "_NET_CURRENT_DESKTOP"},
    Entry{&X11Atoms::netCloseWindow, "_NET_CLOSE_WINDOW"},
    Entry{&X11Atoms::netWmPid, "_NET_WM_PID"},
    Entry{&X11Atoms::netWmDesktop, "_NET_WM_DESKTOP"},
    Entry{&X11Atoms::netWmStrut, "_NET_WM_STRUT"},
    Entry{&X11Atoms::netWmStrutPartial, "_NET_WM_STRUT_PARTIAL"},
    Entry{&X11Atoms::netWmState, "_NET_WM_STATE"},
    Entry{&X11Atoms::netWmStateAbove, "_NET_WM_STATE_ABOVE"},
    Entry{&X11Atoms::netWmStateFullscreen, "_NET_WM_STATE_FULLSCREEN"},
    Entry{&X11Atoms::netWmStateSticky, "_NET_WM_STATE_STICKY"},
    Entry{&X11Atoms::netWmStateSkipTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
    Entry{&X11Atoms::netWmStateSkipPager, "_NET_WM_STATE_SKIP_PAGER"},
    Entry{&X11Atoms::netWmWindowType, "_NET_WM_WINDOW_TYPE"},
    Entry{&X11Atoms::netWmWindowTypeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    Entry{&X11Atoms::netWmWindowTypeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    Entry{&X11Atoms::netWmWindowTypeToolbar, "_NET_WM_WINDOW_TYPE_TOOLBAR"},
    Entry{&X11Atoms::netWmWindowTypeMenu, "_NET_WM_WINDOW_TYPE_MENU"},
    Entry{&X11Atoms::netWmWindowTypeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
    Entry{&X11Atoms::netWmWindowTypeSplash, "_NET_WM_WINDOW_TYPE_SPLASH"},
    Entry{&X11Atoms::netWmWindowTypeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    Entry{&X11Atoms::netWmWindowTypeDropdownMenu, "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"},
    Entry{&X11Atoms::netWmWindowTypePopupMenu, "_NET_WM_WINDOW_TYPE_POPUP_MENU"},
    Entry{&X11Atoms::netWmWindowTypeTooltip, "_NET_WM_WINDOW_TYPE_TOOLTIP"},
    Entry{&X11Atoms::netWmWindowTypeNotification, "_NET_WM_WINDOW_TYPE_NOTIFICATION"},
    Entry{&X11Atoms::netWmWindowTypeCombo, "_NET_WM_WINDOW_TYPE_COMBO"},
    Entry{&X11Atoms::netWmWindowTypeDnd, "_NET_WM_WINDOW_TYPE_DND"},
    Entry{&X11Atoms::netWmWindowTypeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    Entry{&X11Atoms::wmProtocols, "WM_PROTOCOLS"},
    Entry{&X11Atoms::wmDeleteWindow, "WM_DELETE_WINDOW"},
    Entry{&X11Atoms::gtkApplicationId, "_GTK_APPLICATION_ID"},
    Entry{&X11Atoms::kdeBlurBehindRegion, "_KDE_NET_WM_BLUR_BEHIND_REGION"},
    Entry{&X11Atoms::kdeDesktopFile, "_KDE_NET_WM_DESKTOP_FILE"},
    Entry{&X11Atoms::edid, "EDID"},
};

} // namespace

X11Atoms X11Atoms::intern(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, entries.size()> cookies{};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto name = entries[i].name;
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    X11Atoms atoms;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (auto* reply = xcb_intern_atom_reply(connection, cookies[i], nullptr)) {
            atoms.*entries[i].field = reply->atom;
            std::free(reply);
        }
    }
    return atoms;
}

xcb_atom_t internAtom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace quillary
