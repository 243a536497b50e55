#pragma once

#include <QPainter>

namespace quillary {

/// While it lives, the painter's coordinates are device pixels instead of points. Where these are the same
/// the painter's state is not saved and restored, which every icon of every frame would pay for.
class DevicePixels {
public:
    DevicePixels(QPainter& target, double ratio) : painter(target), differs(ratio != 1) {
        if (differs) {
            painter.save();
            painter.scale(1 / ratio, 1 / ratio);
        }
    }
    ~DevicePixels() {
        if (differs) {
            painter.restore();
        }
    }
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

private:
    QPainter& painter;
    bool differs;
};

} // namespace quillary
