#pragma once

#include <QObject>

namespace quillary {

/// The program's symbol in the desktop's status bar ("tray") and the menu that it opens. The symbol also
/// appears in a status bar that starts later or replaces another. Destroying the item removes the symbol.
class StatusItem : public QObject {
    Q_OBJECT

public:
    /// Whether a status bar shows the symbol now.
    [[nodiscard]] virtual bool isShown() const = 0;

Q_SIGNALS:
    void shownChanged();
};

} // namespace quillary
