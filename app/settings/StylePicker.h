#pragma once

#include "app/settings/ChoiceGroup.h"

namespace quillary {

/// A row of tiles, one for each style in the order of its cases; several rows where they are too wide for
/// one.
class StylePicker : public ChoiceGroup {
    Q_OBJECT

public:
    explicit StylePicker(const QString& name, QWidget* parent = nullptr);
};

} // namespace quillary
