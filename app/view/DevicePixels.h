#pragma once

#include <QPainter>

namespace quillary {

/// While it lives, the painter's coordinates are device pixels instead of points. Where these are the same
/// the painter's state is not saved and restored, which every icon of every frame would pay for.
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
