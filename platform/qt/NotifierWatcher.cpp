#include "platform/qt/NotifierWatcher.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <atomic>
#include <mutex>
#include <thread>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

// A connection of its own: bars drop an item when the connection goes, and it goes with the item.
QString nextConnectionName() {
    static std::atomic<int> count = 0;
    return u"quillary-status-%1"_s.arg(++count);
}

const auto driver = u"org.freedesktop.DBus"_s;
const auto driverPath = u"/org/freedesktop/DBus"_s;
const auto watcherName = u"org.kde.StatusNotifierWatcher"_s;
const auto watcherPath = u"/StatusNotifierWatcher"_s;

} // namespace

// Where the thread that connects leaves its result; without a reader once nobody waits for it any more.
struct NotifierWatcher::Mailbox {
    std::mutex lock;
    NotifierWatcher* reader = nullptr;
    bool connected = false;
};

NotifierWatcher::NotifierWatcher()
    : mailbox(std::make_shared<Mailbox>()), connectionName(nextConnectionName()) {
    mailbox->reader = this;
    connectLater();
}

NotifierWatcher::~NotifierWatcher() {
    const std::lock_guard guard(mailbox->lock);
    mailbox->reader = nullptr;
    connection.reset();
    // While the thread is still at it, this would wait for it; then the thread does it.
    if (mailbox->connected) {
        QDBusConnection::disconnectFromBus(connectionName);
    }
}

// Connecting can't be interrupted once a peer has taken the connection and says nothing: the thread may wait
// for as long as the program runs.
void NotifierWatcher::connectLater() {
    std::thread([box = mailbox, name = connectionName] {
        const auto made = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        const std::lock_guard guard(box->lock);
        box->connected = true;
        if (auto* reader = box->reader) {
            QMetaObject::invokeMethod(
                reader, [reader, made] { reader->follow(made); }, Qt::QueuedConnection);
        } else {
            QDBusConnection::disconnectFromBus(name);
        }
    }).detach();
}

void NotifierWatcher::follow(const QDBusConnection& made) {
    if (!made.isConnected()) {
        setState(State::absent);
        return;
    }
    connection = made;
    connection->connect(driver, driverPath, driver, u"NameOwnerChanged"_s, {watcherName}, {}, this,
                        SLOT(nameOwnerChanged(QString, QString, QString)));
    for (const auto& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        connection->connect({}, watcherPath, watcherName, signal, this, SLOT(hostsChanged()));
    }
    connection->connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                        u"Disconnected"_s, this, SLOT(disconnected()));
    Q_EMIT connected();
    askOwner();
}

template<typename Function>
void NotifierWatcher::call(const QDBusMessage& message, Function answered) {
    auto* pending = new QDBusPendingCallWatcher(connection->asyncCall(message, patience), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answered, asked = owner, this] {
        pending->deleteLater();
        // What one answers says nothing of the next.
        if (asked == owner && connection) {
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
    message << connection->baseService();
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
    if (connection && taken) {
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

void NotifierWatcher::disconnected() {
    connection.reset();
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
