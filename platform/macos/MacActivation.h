#pragma once

#include <QObject>

namespace quillary {

/// Makes the program an accessory, without an icon in the Dock and without a menu bar, and activates it when
/// one of its ordinary windows is shown or raised. AppKit does not do that for accessories.
class MacActivation final : public QObject {
    Q_OBJECT

public:
    /// Watches the QApplication, which must exist.
    MacActivation();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quillary
