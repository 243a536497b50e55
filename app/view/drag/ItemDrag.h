#pragma once

#include <QImage>

#include <string>

namespace quillary {

/// Drags a dock item, shown as this picture with its centre at the pointer. Returns when it has been dropped
/// or the drag was cancelled; the drop is handled by its target.
void dragItem(const std::string& path, const QImage& picture);

} // namespace quillary
