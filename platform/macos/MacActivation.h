#pragma once

#include <QObject>

namespace quillary {

/// Makes the program an accessory, without an icon in the Dock and a menu bar, and brings it to the front
/// when one of its ordinary windows is shown or raised, which an accessory does not do by itself.
class MacActivation final : public QObject {
    Q_OBJECT

public:
    /// Watches the application, which must exist.
    MacActivation();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quillary
