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

/// The monitors that RandR tells, read by ourselves: Qt misses some changes and knows no free space per
/// monitor. A monitor that shows the same area as an earlier one is a mirror and left out.
class X11Screens final : public Screens {
    Q_OBJECT

public:
    X11Screens(X11Connection& connection, X11ClientList& clients);
    ~X11Screens() override;

    [[nodiscard]] std::vector<ScreenInfo> list() const override { return m_list; }
    /// A point of the X server's root window in global points.
    [[nodiscard]] QPointF toPoints(QPoint native) const { return toGlobalPoints(m_nativeScreens, native); }
    /// A rectangle of the X server's root window in global points.
    [[nodiscard]] QRectF toPoints(const QRect& native) const {
        return toGlobalPoints(m_nativeScreens, native);
    }

    /// The frame of the screen that holds the point, else of the nearest one, in global points; empty without
    /// screens.
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
    // Ordered, so that equal struts give equal frames whatever came first.
    std::map<xcb_window_t, Strut> m_struts;
    std::unordered_set<xcb_window_t> m_staleStruts;
    bool m_monitorsStale = false;
    std::vector<NativeScreen> m_nativeScreens;
    std::vector<ScreenInfo> m_list;
};

} // namespace quillary
