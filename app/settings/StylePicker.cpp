#include "app/settings/StylePicker.h"

#include "app/settings/FormPaint.h"
#include "app/settings/LinesLayout.h"
#include "app/settings/StyleTile.h"

namespace quillary {

namespace {

constexpr int gap = 10;

} // namespace

StylePicker::StylePicker(const QString& name, QWidget* parent) : ChoiceGroup(name, parent) {
    auto* layout = new LinesLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // Between the desktops: each tile has room for a focus ring around its own.
    layout->setSpacing(gap - 2 * FormPaint::ringReach);
    for (const DockStyle style : allCases<DockStyle>()) {
        auto* tile = new StyleTile(style, this);
        layout->addWidget(tile);
        add(tile);
    }
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
}

} // namespace quillary
