#pragma once

#include "platform/linux/bus/LateSessionBus.h"

#include <QObject>

#include <optional>

class QDBusMessage;

namespace quillary {

/// Registers this process's status item with the program that keeps the list of them on the session bus
/// (org.kde.StatusNotifierWatcher), whenever that program appears or is replaced. Never blocks the main
/// thread, and starts no program.
class NotifierWatcher final : public QObject {
    Q_OBJECT

public:
    enum class State {
        /// The bus, or the watcher, has not answered yet.
        unknown,
        /// There is no bus, or no watcher on it.
        absent,
        /// The watcher has not accepted the item, or has no status bar that shows it.
        idle,
        /// The watcher has accepted the item and a status bar shows it.
        shown,
        /// The watcher did not answer in time.
        silent,
    };

    NotifierWatcher();

    [[nodiscard]] State state() const { return m_state; }
    /// The connection to the bus; absent while there is none.
    [[nodiscard]] const std::optional<QDBusConnection>& bus() const { return m_bus.connection(); }

    /// The timeout of each call to the watcher, in milliseconds.
    static constexpr int patience = 5000;

Q_SIGNALS:
    /// The bus is connected, and the item not registered yet: objects must be registered with the bus now.
    void connected();
    void stateChanged();

private Q_SLOTS:
    void nameOwnerChanged(const QString& name, const QString& before, const QString& after);
    void hostsChanged();

private:
    void follow();
    void forget();
    void askOwner();
    void setOwner(const QString& name);
    void introduce();
    void askHosts();
    template<typename Function>
    void call(const QDBusMessage& message, Function answered);
    void setState(State state);

    // A private connection: bars remove an item when its connection closes, which it does with this object.
    LateSessionBus m_bus;
    QString m_owner;
    bool m_isTaken = false;
    State m_state = State::unknown;
};

} // namespace quillary
