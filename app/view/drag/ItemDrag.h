#pragma once

#include <QImage>

#include <string>

namespace quillary {

/// Drags a dock entry, shown as this picture, its centre at the pointer, until it is dropped or the drag is
/// cancelled; returns then. What happens with it is the business of where it is dropped.
void dragItem(const std::string& path, const QImage& picture);

} // namespace quillary
