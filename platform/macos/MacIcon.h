#pragma once

#include <QIcon>

#import <AppKit/AppKit.h>

/// Converts between AppKit's images and Qt's icons.
namespace quillary::MacIcon {

/// An icon that renders the image at each requested size.
[[nodiscard]] QIcon icon(NSImage* image);
/// The icon as a square image with sides of this many points, rendered at twice that many pixels.
[[nodiscard]] NSImage* image(const QIcon& icon, int side);

} // namespace quillary::MacIcon
