#pragma once

#include "platform/Screens.h"
#include "platform/x11/NativeScreens.h"
#include "platform/x11/StrutArithmetic.h"
#include "platform/x11/X11Connection.h"

#include <map>
#include <unordered_set>

namespace quillary {

class X11ClientList;
struct X11Monitor;

/// The monitors that RandR reports. They are not taken from Qt, which misses some changes and does not know
/// the reserved space of each monitor.
class X11Screens final : public Screens {
    Q_OBJECT

public:
    X11Screens(X11Connection& connection, X11ClientList& clients);
    ~X11Screens() override;

    [[nodiscard]] std::vector<ScreenInfo> list() const override { return m_list; }
    /// Converts a point of the root window, in device pixels, to global points.
    [[nodiscard]] QPointF toPoints(QPoint native) const { return toGlobalPoints(m_nativeScreens, native); }
    /// Converts a rectangle of the root window, in device pixels, to global points.
    [[nodiscard]] QRectF toPoints(const QRect& native) const {
        return toGlobalPoints(m_nativeScreens, native);
    }
    /// The frame of the screen that contains the point, else of the nearest one, in global points; empty
    /// without screens.
    [[nodiscard]] QRect frameNear(QPoint point) const;

private:
    void followQtScreens();
    void handleEvent(const xcb_generic_event_t* event);
    void handleSettled();
    void handleClients();
    void readStruts(const std::vector<xcb_window_t>& windows);
    void readMonitors();
    void update();

    X11Connection& m_connection;
    X11ClientList& m_clients;
    int m_randrEvent = -1;
    std::vector<X11Monitor> m_monitors;
    QSize m_desktop;
    std::unordered_set<xcb_window_t> m_strutWindows;
    // Ordered, so that the frames do not depend on the order in which struts appeared.
    std::map<xcb_window_t, Strut> m_struts;
    std::unordered_set<xcb_window_t> m_staleStruts;
    bool m_monitorsStale = false;
    std::vector<NativeScreen> m_nativeScreens;
    std::vector<ScreenInfo> m_list;
};

} // namespace quillary
