#include "platform/qt/LateSessionBus.h"

#include <atomic>
#include <mutex>
#include <thread>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

QString nextConnectionName() {
    static std::atomic<int> count = 0;
    return u"quillary-%1"_s.arg(++count);
}

} // namespace

// Where the thread that connects leaves its result; without a reader once nobody waits for it any more.
struct LateSessionBus::Mailbox {
    std::mutex lock;
    LateSessionBus* reader = nullptr;
    bool connected = false;
};

LateSessionBus::LateSessionBus() : mailbox(std::make_shared<Mailbox>()), name(nextConnectionName()) {
    mailbox->reader = this;
    connectLater();
}

LateSessionBus::~LateSessionBus() {
    const std::lock_guard guard(mailbox->lock);
    mailbox->reader = nullptr;
    made.reset();
    // While the thread is still at it, this would wait for it; then the thread does it.
    if (mailbox->connected) {
        QDBusConnection::disconnectFromBus(name);
    }
}

// Connecting can't be interrupted once a peer has taken the connection and says nothing: the thread may wait
// for as long as the program runs.
void LateSessionBus::connectLater() {
    std::thread([box = mailbox, name = name] {
        const auto connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        const std::lock_guard guard(box->lock);
        box->connected = true;
        if (auto* reader = box->reader) {
            QMetaObject::invokeMethod(
                reader, [reader, connection] { reader->follow(connection); }, Qt::QueuedConnection);
        } else {
            QDBusConnection::disconnectFromBus(name);
        }
    }).detach();
}

void LateSessionBus::follow(const QDBusConnection& connection) {
    if (!connection.isConnected()) {
        Q_EMIT absent();
        return;
    }
    made = connection;
    made->connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s,
                  this, SLOT(disconnected()));
    Q_EMIT connected();
}

void LateSessionBus::disconnected() {
    made.reset();
    Q_EMIT absent();
}

} // namespace quillary
