#pragma once

#include <QDBusConnection>
#include <QFutureWatcher>
#include <QObject>

#include <optional>

namespace quillary {

/// A private connection to the session bus, made on another thread: a bus that accepts connections and then
/// stays silent does not block the caller. Closed on destruction.
class LateSessionBus final : public QObject {
    Q_OBJECT

public:
    /// Starts connecting. For a thread with an event loop.
    LateSessionBus();
    ~LateSessionBus() override;

    /// Absent until the bus has answered, when there is none, and after the connection was lost.
    [[nodiscard]] const std::optional<QDBusConnection>& connection() const { return m_connection; }

Q_SIGNALS:
    /// The connection is ready.
    void connected();
    /// There is no bus, or the connection was lost.
    void absent();

private Q_SLOTS:
    void disconnected();

private:
    void startConnecting();
    void follow();

    QString m_name;
    QFutureWatcher<QDBusConnection> m_connecting;
    std::optional<QDBusConnection> m_connection;
};

} // namespace quillary
