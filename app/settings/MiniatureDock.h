#pragma once

#include "app/settings/MiniatureWorkspace.h"
#include "core/DockStyle.h"

#include <QImage>
#include <QSizeF>

#include <memory>

class QPalette;

namespace quillary {

class DockModel;
class IconCache;
class MemoryMonitor;
class Platform;

/// A small picture of a dock with four items, made by the code that draws docks.
class MiniatureDock {
public:
    /// The side of an item's square in the picture, points.
    static constexpr double itemSide = 11;

    /// The platform must outlive the miniature. `memory` is that of the real docks; no figure of it is shown.
    MiniatureDock(DockStyle style, Platform& platform, std::shared_ptr<MemoryMonitor> memory);
    ~MiniatureDock();
    MiniatureDock(const MiniatureDock&) = delete;
    MiniatureDock& operator=(const MiniatureDock&) = delete;

    /// The dock at the bottom of a picture of that size, centred; clear around it. `size`:
    /// points; `ratio`: device pixels per point.
    [[nodiscard]] QImage picture(QSizeF size, double ratio, const QPalette& palette);

private:
    /// How much of an item's side its square takes.
    double squareShare;
    MiniatureWorkspace workspace;
    std::shared_ptr<IconCache> icons;
    std::unique_ptr<DockModel> model;
};

} // namespace quillary
