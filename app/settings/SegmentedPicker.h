#pragma once

#include "app/settings/ChoiceGroup.h"
#include "app/settings/Slide.h"

#include <QRectF>
#include <QStringList>

namespace quillary {

/// A choice of a few words beside each other in one groove, a plate under the current one. All segments are
/// as wide as the widest, unless there is only room for what each of them needs.
class SegmentedPicker : public ChoiceGroup {
    Q_OBJECT

public:
    SegmentedPicker(const QString& name, const QStringList& titles, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void currentChanged() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QRectF groove() const;
    /// The plate's place under the current segment; empty without one.
    [[nodiscard]] QRectF restingPlate() const;

    Slide m_plate{*this, QRectF()};
};

} // namespace quillary
