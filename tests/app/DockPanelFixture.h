#pragma once

#include "tests/app/Fixture.h"

namespace quillary::test {

inline const std::string mail = "/Applications/Mail.app";
inline const std::string notes = "/Applications/Notes.app";

/// One dock of two items at the bottom of LEFT, no magnification: the panel is 146 × 125, its row starts
/// at 14.
class DockPanelTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
        turn();
    }
    void point(double x, double y) { platform.pointer().moveTo(QPointF(x, y)); }
    void setAutoHide(bool on) const {
        configure([on](DockConfig& config) { config.autoHide = on; });
    }
    void wait(double seconds) { platform.scheduler().advance(seconds); }

    const QPointF onIcon{640, 860};
    const QPointF elsewhere{640, 300};
    const QPointF atTheEdge{640, 899};
};

} // namespace quillary::test
