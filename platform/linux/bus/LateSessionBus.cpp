#include "platform/linux/bus/LateSessionBus.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

QString nextConnectionName() {
    static std::atomic<int> count = 0;
    return u"quillary-%1"_s.arg(++count);
}

// The threads that are connecting. Never destroyed: they may outlive everything else.
class Connecting {
public:
    static Connecting& shared() {
        static auto* only = new Connecting;
        return *only;
    }
    void begin() {
        const std::lock_guard guard(lock);
        ++threads;
    }
    void end() {
        const std::lock_guard guard(lock);
        --threads;
        ended.notify_all();
    }

private:
    Connecting() {
        // The toolkit's own objects for the bus are made now: what is registered later runs earlier at the
        // exit.
        QDBusConnection::disconnectFromBus({});
        on_exit([](int status, void* /*unused*/) { shared().leave(status); }, nullptr);
    }
    // The toolkit's objects go at the exit, under the feet of a thread that is still connecting.
    void leave(int status) {
        constexpr std::chrono::milliseconds patience(300);
        std::unique_lock guard(lock);
        if (!ended.wait_for(guard, patience, [this] { return threads == 0; })) {
            std::fflush(nullptr);
            _exit(status);
        }
    }

    std::mutex lock;
    std::condition_variable ended;
    int threads = 0;
};

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
    Connecting::shared().begin();
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
        Connecting::shared().end();
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
