#pragma once

#include "platform/Screens.h"
#include "platform/macos/ScreenCoordinates.h"

#include <memory>

namespace quillary {

/// The screens as AppKit lists them. A display's UUID is that of ColorSync, its number that of CoreGraphics.
class MacScreens final : public Screens {
    Q_OBJECT

public:
    MacScreens();
    ~MacScreens() override;

    [[nodiscard]] std::vector<ScreenInfo> list() const override;

    /// The conversion from AppKit's coordinates, for the present arrangement of the screens.
    [[nodiscard]] static ScreenCoordinates coordinates();

private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary
