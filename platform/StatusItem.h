#pragma once

#include <QObject>

namespace quillary {

/// The program's symbol in the desktop's status bar ("tray"), with the menu that opens from it. It shows
/// itself whenever there is a status bar: one that starts later, or is replaced, gets it too. Destroying it
/// takes it away.
class StatusItem : public QObject {
    Q_OBJECT

public:
    /// Whether some status bar has it now.
    [[nodiscard]] virtual bool isShown() const = 0;

Q_SIGNALS:
    void shownChanged();
};

} // namespace quillary
