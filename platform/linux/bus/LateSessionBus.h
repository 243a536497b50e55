#pragma once

#include <QDBusConnection>
#include <QObject>

#include <memory>
#include <optional>

namespace quillary {

/// A connection to the session bus of its own, made on another thread: a bus that takes connections and says
/// nothing holds up nobody. It ends with this.
class LateSessionBus final : public QObject {
    Q_OBJECT

public:
    LateSessionBus();
    ~LateSessionBus() override;

    /// Absent while the bus has not answered, when there is none, and once it has gone.
    [[nodiscard]] const std::optional<QDBusConnection>& connection() const { return made; }

Q_SIGNALS:
    /// The bus is there.
    void connected();
    /// There is no bus, or no longer.
    void absent();

private Q_SLOTS:
    void disconnected();

private:
    struct Mailbox;

    void connectLater();
    void follow(const QDBusConnection& connection);

    std::shared_ptr<Mailbox> mailbox;
    QString name;
    std::optional<QDBusConnection> made;
};

} // namespace quillary
