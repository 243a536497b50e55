#pragma once

#include <QIcon>

namespace quillary {

/// An icon drawn by the program, sharp in every size, for where no icon theme has one: a sheet for documents,
/// a rounded square for applications, a folder for folders.
enum class PlainIconShape { application, document, folder };
[[nodiscard]] QIcon plainIcon(PlainIconShape shape);

} // namespace quillary
