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
    connect(&session, &LateSessionBus::connected, this, &NotifierWatcher::follow);
    connect(&session, &LateSessionBus::absent, this, &NotifierWatcher::forget);
}

void NotifierWatcher::follow() {
    auto connection = *session.connection();
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
    auto* pending = new QDBusPendingCallWatcher(session.connection()->asyncCall(message, patience), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answered, asked = owner, this] {
        pending->deleteLater();
        // What one answers says nothing of the next.
        if (asked == owner && session.connection()) {
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
    if (!name.isEmpty() && name == owner) {
        return;
    }
    owner = name;
    taken = false;
    if (owner.isEmpty()) {
        setState(State::absent);
        return;
    }
    setState(State::unknown);
    introduce();
}

void NotifierWatcher::introduce() {
    auto message =
        QDBusMessage::createMethodCall(owner, watcherPath, watcherName, u"RegisterStatusNotifierItem"_s);
    message << session.connection()->baseService();
    call(message, [this](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) {
            taken = true;
            askHosts();
        } else if (reply.errorName() == QDBusError::errorString(QDBusError::NoReply)) {
            setState(State::silent);
        } else {
            setState(State::idle);
        }
    });
}

void NotifierWatcher::hostsChanged() {
    if (session.connection() && taken) {
        askHosts();
    }
}

void NotifierWatcher::askHosts() {
    auto message =
        QDBusMessage::createMethodCall(owner, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << watcherName << u"IsStatusNotifierHostRegistered"_s;
    call(message, [this](const QDBusMessage& reply) {
        const QDBusPendingReply<QDBusVariant> value(reply);
        setState(value.isValid() && value.value().variant().toBool() ? State::shown : State::idle);
    });
}

void NotifierWatcher::forget() {
    owner.clear();
    taken = false;
    setState(State::absent);
}

void NotifierWatcher::setState(State state) {
    if (state != now) {
        now = state;
        Q_EMIT stateChanged();
    }
}

} // namespace quillary
