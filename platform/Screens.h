#pragma once

#include "platform/ScreenInfo.h"

#include <QObject>

#include <vector>

namespace quillary {

/// The connected screens.
class Screens : public QObject {
    Q_OBJECT

public:
    /// The screens connected now, the primary one first, then in the system's order. Placeholders that a
    /// window system reports while no screen is connected are left out; the list is empty then.
    [[nodiscard]] virtual std::vector<ScreenInfo> list() const = 0;

Q_SIGNALS:
    /// A screen was connected or disconnected, or a frame, visible frame or scale changed. Changes that the
    /// system reports together are coalesced into one signal.
    void changed();
};

} // namespace quillary
