#pragma once

#include "platform/linux/bus/LateSessionBus.h"

#include <QObject>

#include <optional>

class QDBusMessage;

namespace quillary {

/// The program that keeps the list of status items on the session bus (org.kde.StatusNotifierWatcher): told
/// of this process's item, at once, whenever it appears, and again when another takes its place. Never waits
/// for the bus on the main thread, and starts no program.
class NotifierWatcher final : public QObject {
    Q_OBJECT

public:
    enum class State {
        /// The bus, or whoever has the name on it, has not answered so far.
        unknown,
        /// There is no bus, or none has the name on it.
        absent,
        /// It has the name, but has not taken the item or has no status bar that would show it.
        idle,
        /// It has taken the item and a status bar shows it.
        shown,
        /// It has the name and did not answer.
        silent,
    };

    NotifierWatcher();

    [[nodiscard]] State state() const { return m_state; }
    /// The bus; absent while it has not answered.
    [[nodiscard]] const std::optional<QDBusConnection>& bus() const { return m_bus.connection(); }

    /// How long the other side gets to answer, in milliseconds.
    static constexpr int patience = 5000;

Q_SIGNALS:
    /// The bus is there: objects are to be registered now, before it is told of the item.
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

    // Of its own: bars drop an item when the connection goes, and it goes with the item.
    LateSessionBus m_bus;
    QString m_owner;
    bool m_isTaken = false;
    State m_state = State::unknown;
};

} // namespace quillary
