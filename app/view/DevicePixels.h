#pragma once

#include <QPainter>

namespace quillary {

/// Switches a painter's coordinates from points to device pixels for its lifetime. Where these are the same
/// it does not save and restore the painter's state, a cost for each icon of each frame.
class DevicePixels {
public:
    DevicePixels(QPainter& painter, double ratio) : m_painter(painter), m_differs(ratio != 1) {
        if (m_differs) {
            m_painter.save();
            m_painter.scale(1 / ratio, 1 / ratio);
        }
    }
    ~DevicePixels() {
        if (m_differs) {
            m_painter.restore();
        }
    }
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

private:
    QPainter& m_painter;
    bool m_differs;
};

} // namespace quillary
