#include "platform/linux/bus/LateSessionBus.h"

#include <QPromise>

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

// Counts the threads that are connecting. Never destroyed: the threads may outlive every other object.
class Connecting {
public:
    static Connecting& shared() {
        static auto* only = new Connecting;
        return *only;
    }
    void begin() {
        const std::lock_guard guard(m_lock);
        ++m_threads;
    }
    void end() {
        const std::lock_guard guard(m_lock);
        --m_threads;
        m_ended.notify_all();
    }

private:
    Connecting() {
        // Creates the toolkit's own objects for the bus now: exit handlers run in reverse order, so the one
        // below comes before their destruction.
        QDBusConnection::disconnectFromBus({});
        on_exit([](int status, void* /*unused*/) { shared().leave(status); }, nullptr);
    }
    // A thread that is still connecting uses the toolkit's objects, which the exit destroys: when it does not
    // finish soon, the program ends without destroying anything.
    void leave(int status) {
        constexpr std::chrono::milliseconds patience(300);
        std::unique_lock guard(m_lock);
        if (!m_ended.wait_for(guard, patience, [this] { return m_threads == 0; })) {
            std::fflush(nullptr);
            _exit(status);
        }
    }

    std::mutex m_lock;
    std::condition_variable m_ended;
    int m_threads = 0;
};

} // namespace

LateSessionBus::LateSessionBus() : m_name(nextConnectionName()) {
    connect(&m_connecting, &QFutureWatcherBase::finished, this, &LateSessionBus::follow);
    startConnecting();
}

LateSessionBus::~LateSessionBus() {
    m_connection.reset();
    auto connecting = m_connecting.future();
    connecting.cancel();
    // While the thread is still connecting, closing would wait for it; the thread then closes the connection.
    if (connecting.isFinished()) {
        QDBusConnection::disconnectFromBus(m_name);
    }
}

// The toolkit cannot be interrupted while a bus that has accepted the connection is silent: the thread may
// wait as long as the program runs.
void LateSessionBus::startConnecting() {
    Connecting::shared().begin();
    QPromise<QDBusConnection> promise;
    promise.start();
    m_connecting.setFuture(promise.future());
    std::thread([promise = std::move(promise), name = m_name]() mutable {
        promise.addResult(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name));
        promise.finish();
        if (promise.isCanceled()) {
            QDBusConnection::disconnectFromBus(name);
        }
        Connecting::shared().end();
    }).detach();
}

void LateSessionBus::follow() {
    const auto connection = m_connecting.result();
    if (!connection.isConnected()) {
        Q_EMIT absent();
        return;
    }
    m_connection = connection;
    m_connection->connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                          u"Disconnected"_s, this, SLOT(disconnected()));
    Q_EMIT connected();
}

void LateSessionBus::disconnected() {
    m_connection.reset();
    Q_EMIT absent();
}

} // namespace quillary
