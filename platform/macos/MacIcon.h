#pragma once

#include <QIcon>

#import <AppKit/AppKit.h>

/// The way between AppKit's images and the toolkit's icons.
namespace quillary::MacIcon {

/// An icon that the image is drawn into at each size that is asked for.
[[nodiscard]] QIcon icon(NSImage* image);
/// The icon at this many points, for both kinds of screens.
[[nodiscard]] NSImage* image(const QIcon& icon, int side);

} // namespace quillary::MacIcon
