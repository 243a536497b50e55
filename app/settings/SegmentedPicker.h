#pragma once

#include "app/settings/ChoiceGroup.h"

#include <QRectF>
#include <QStringList>
#include <QVariantAnimation>

namespace quillary {

/// A choice of a few words beside each other in one groove, a plate under the current one.
class SegmentedPicker : public ChoiceGroup {
    Q_OBJECT

public:
    SegmentedPicker(const QString& name, const QStringList& titles, QWidget* parent = nullptr);

protected:
    void currentChanged() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Makes all segments as wide as the widest.
    void evenOut();
    [[nodiscard]] QRectF groove() const;
    [[nodiscard]] QRectF plateAt(int index) const;

    QRectF plate;
    QVariantAnimation slide;
};

} // namespace quillary
