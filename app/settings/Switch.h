#pragma once

#include "app/settings/Slide.h"
#include "app/settings/StateButton.h"

#include <QCheckBox>

namespace quillary {

/// A switch with a knob that slides from one end to the other.
class Switch : public StateButton<QCheckBox> {
    Q_OBJECT

public:
    explicit Switch(const QString& name, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user asks for this state.
    void switched(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The knob's place, from 0 (off) to 1 (on).
    Slide m_place{*this, 0.0};
};

} // namespace quillary
