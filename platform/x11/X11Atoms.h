#pragma once

#include <xcb/xcb.h>

#include <string_view>

namespace quillary {

/// The atoms that the X11 backend uses: those of EWMH and ICCCM, and toolkits' extensions. An atom that could
/// not be interned is XCB_ATOM_NONE, which matches nothing.
struct X11Atoms {
    xcb_atom_t netSupported = XCB_ATOM_NONE;
    xcb_atom_t netSupportingWmCheck = XCB_ATOM_NONE;
    xcb_atom_t netClientList = XCB_ATOM_NONE;
    xcb_atom_t netClientListStacking = XCB_ATOM_NONE;
    xcb_atom_t netActiveWindow = XCB_ATOM_NONE;
    xcb_atom_t netCurrentDesktop = XCB_ATOM_NONE;
    xcb_atom_t netCloseWindow = XCB_ATOM_NONE;
    xcb_atom_t netWmPid = XCB_ATOM_NONE;
    xcb_atom_t netWmDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmStrut = XCB_ATOM_NONE;
    xcb_atom_t netWmStrutPartial = XCB_ATOM_NONE;
    xcb_atom_t netWmState = XCB_ATOM_NONE;
    xcb_atom_t netWmStateAbove = XCB_ATOM_NONE;
    xcb_atom_t netWmStateFullscreen = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSticky = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSkipTaskbar = XCB_ATOM_NONE;
    xcb_atom_t netWmStateSkipPager = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowType = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDesktop = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDock = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeToolbar = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeUtility = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeSplash = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDialog = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDropdownMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypePopupMenu = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeTooltip = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNotification = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeCombo = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeDnd = XCB_ATOM_NONE;
    xcb_atom_t netWmWindowTypeNormal = XCB_ATOM_NONE;
    xcb_atom_t wmProtocols = XCB_ATOM_NONE;
    xcb_atom_t wmDeleteWindow = XCB_ATOM_NONE;
    xcb_atom_t gtkApplicationId = XCB_ATOM_NONE;
    xcb_atom_t kdeBlurBehindRegion = XCB_ATOM_NONE;
    xcb_atom_t kdeDesktopFile = XCB_ATOM_NONE;
    xcb_atom_t edid = XCB_ATOM_NONE;

    /// Interns all atoms in one round trip.
    [[nodiscard]] static X11Atoms intern(xcb_connection_t* connection);
};

/// Interns another atom; XCB_ATOM_NONE on failure. A round trip.
[[nodiscard]] xcb_atom_t internAtom(xcb_connection_t* connection, std::string_view name);

} // namespace quillary
