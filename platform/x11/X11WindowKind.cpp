#include "platform/x11/X11WindowKind.h"

#include <algorithm>
#include <array>

namespace quillary::X11WindowKind {

namespace {

bool contains(const auto& list, xcb_atom_t atom) {
    return std::ranges::find(list, atom) != list.end();
}

} // namespace

bool isNormal(const X11Atoms& atoms, const std::vector<std::uint32_t>& types,
              const std::vector<std::uint32_t>& states) {
    if (contains(states, atoms.netWmStateSkipTaskbar)) {
        return false;
    }
    const std::array shown = {atoms.netWmWindowTypeNormal, atoms.netWmWindowTypeDialog};
    const std::array hidden = {
        atoms.netWmWindowTypeDesktop,      atoms.netWmWindowTypeDock,      atoms.netWmWindowTypeToolbar,
        atoms.netWmWindowTypeUtility,      atoms.netWmWindowTypeMenu,      atoms.netWmWindowTypeSplash,
        atoms.netWmWindowTypeDropdownMenu, atoms.netWmWindowTypePopupMenu, atoms.netWmWindowTypeTooltip,
        atoms.netWmWindowTypeNotification, atoms.netWmWindowTypeCombo,     atoms.netWmWindowTypeDnd};
    for (const auto type : types) {
        if (contains(shown, type)) {
            return true;
        }
        if (contains(hidden, type)) {
            return false;
        }
    }
    return true;
}

} // namespace quillary::X11WindowKind
