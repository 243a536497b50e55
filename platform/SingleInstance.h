#pragma once

#include <QObject>

namespace quillary {

/// Sees to it that the program runs once in a session.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// Makes this process the one that runs, until its end, however it ends. False when another one is: that
    /// one has then been told that it was opened again. True when the session offers no way to know.
    [[nodiscard]] virtual bool claim() = 0;

Q_SIGNALS:
    /// The program was opened again while this process ran.
    void reopened();
};

} // namespace quillary
