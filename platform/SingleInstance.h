#pragma once

#include <QObject>

namespace quillary {

/// Ensures that the program runs at most once in a session.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// Makes this process the session's instance until it ends, even by a crash. False when another process
    /// is the instance already; that one then emits `reopened`. True when the session offers no means to find
    /// out.
    [[nodiscard]] virtual bool claim() = 0;

Q_SIGNALS:
    /// The user opened the program again while this instance runs.
    void reopened();
};

} // namespace quillary
