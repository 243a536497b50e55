#pragma once

#include "platform/Screens.h"
#include "platform/macos/ScreenCoordinates.h"

#include <memory>

namespace quillary {

/// The screens as AppKit lists them. A display is known by the UUID that ColorSync gives it, its number is
/// CoreGraphics's.
class MacScreens final : public Screens {
    Q_OBJECT

public:
    MacScreens();
    ~MacScreens() override;

    [[nodiscard]] std::vector<ScreenInfo> list() const override;

    /// The way from AppKit's coordinates to the program's, for the arrangement of this moment.
    [[nodiscard]] static ScreenCoordinates coordinates();

private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary
