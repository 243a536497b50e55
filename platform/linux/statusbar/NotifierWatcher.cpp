#include "platform/linux/statusbar/NotifierWatcher.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

const auto driver = u"org.freedesktop.DBus"_s;
const auto driverPath = u"/org/freedesktop/DBus"_s;
const auto watcherName = u"org.kde.StatusNotifierWatcher"_s;
const auto watcherPath = u"/StatusNotifierWatcher"_s;

} // namespace

NotifierWatcher::NotifierWatcher() {
    connect(&m_bus, &LateSessionBus::connected, this, &NotifierWatcher::follow);
    connect(&m_bus, &LateSessionBus::absent, this, &NotifierWatcher::forget);
}

void NotifierWatcher::follow() {
    auto connection = *m_bus.connection();
    connection.connect(driver, driverPath, driver, u"NameOwnerChanged"_s, {watcherName}, {}, this,
                       SLOT(nameOwnerChanged(QString, QString, QString)));
    for (const auto& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        connection.connect({}, watcherPath, watcherName, signal, this, SLOT(hostsChanged()));
    }
    Q_EMIT connected();
    askOwner();
}

template<typename Function>
void NotifierWatcher::call(const QDBusMessage& message, Function answered) {
    auto* pending = new QDBusPendingCallWatcher(m_bus.connection()->asyncCall(message, patience), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answered, asked = m_owner, this] {
        pending->deleteLater();
        // An answer of a former owner of the name does not apply to the present one.
        if (asked == m_owner && m_bus.connection()) {
            answered(pending->reply());
        }
    });
}

void NotifierWatcher::askOwner() {
    auto message = QDBusMessage::createMethodCall(driver, driverPath, driver, u"GetNameOwner"_s);
    message << watcherName;
    call(message, [this](const QDBusMessage& reply) {
        const bool named = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
        setOwner(named ? reply.arguments().constFirst().toString() : QString());
    });
}

void NotifierWatcher::nameOwnerChanged(const QString& name, const QString& /*before*/, const QString& after) {
    if (name == watcherName) {
        setOwner(after);
    }
}

void NotifierWatcher::setOwner(const QString& name) {
    if (!name.isEmpty() && name == m_owner) {
        return;
    }
    m_owner = name;
    m_isTaken = false;
    if (m_owner.isEmpty()) {
        setState(State::absent);
        return;
    }
    setState(State::unknown);
    introduce();
}

void NotifierWatcher::introduce() {
    auto message =
        QDBusMessage::createMethodCall(m_owner, watcherPath, watcherName, u"RegisterStatusNotifierItem"_s);
    message << m_bus.connection()->baseService();
    call(message, [this](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) {
            m_isTaken = true;
            askHosts();
        } else if (reply.errorName() == QDBusError::errorString(QDBusError::NoReply)) {
            setState(State::silent);
        } else {
            setState(State::idle);
        }
    });
}

void NotifierWatcher::hostsChanged() {
    if (m_bus.connection() && m_isTaken) {
        askHosts();
    }
}

void NotifierWatcher::askHosts() {
    auto message =
        QDBusMessage::createMethodCall(m_owner, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << watcherName << u"IsStatusNotifierHostRegistered"_s;
    call(message, [this](const QDBusMessage& reply) {
        const QDBusPendingReply<QDBusVariant> value(reply);
        setState(value.isValid() && value.value().variant().toBool() ? State::shown : State::idle);
    });
}

void NotifierWatcher::forget() {
    m_owner.clear();
    m_isTaken = false;
    setState(State::absent);
}

void NotifierWatcher::setState(State state) {
    if (state != m_state) {
        m_state = state;
        Q_EMIT stateChanged();
    }
}

} // namespace quillary
