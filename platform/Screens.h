#pragma once

#include "platform/ScreenInfo.h"

#include <QObject>

#include <vector>

namespace quillary {

/// The connected screens.
class Screens : public QObject {
    Q_OBJECT

public:
    /// The screens connected now, the primary one first, then in the system's order. Empty when there is
    /// none: placeholders that a window system shows for "no screen" are left out.
    [[nodiscard]] virtual std::vector<ScreenInfo> list() const = 0;

Q_SIGNALS:
    /// A screen came or went, or a frame, visible frame or scale changed. Changes that the system
    /// tells of together are told once.
    void changed();
};

} // namespace quillary
