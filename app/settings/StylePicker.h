#pragma once

#include "app/settings/ChoiceGroup.h"

#include <memory>

namespace quillary {

class MemoryMonitor;
class Platform;

/// A row of tiles, one for each style in the order of its cases.
class StylePicker : public ChoiceGroup {
    Q_OBJECT

public:
    /// The platform must outlive the picker; `memory` is as for MiniatureDock.
    StylePicker(const QString& name, Platform& platform, const std::shared_ptr<MemoryMonitor>& memory,
                QWidget* parent = nullptr);
};

} // namespace quillary
