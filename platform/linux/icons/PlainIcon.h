#pragma once

#include <QIcon>

namespace quillary {

/// An icon drawn by the program, sharp in every size: a sheet for documents, a plate for applications. Stands
/// in where no icon theme has one.
enum class PlainIconShape { application, document, folder };
[[nodiscard]] QIcon plainIcon(PlainIconShape shape);

} // namespace quillary
