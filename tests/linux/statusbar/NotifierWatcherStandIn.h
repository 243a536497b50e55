#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <mutex>
#include <string>

namespace quillary::test {

/// The object that keeps the list of status items.
class NotifierWatcherObject final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    [[nodiscard]] bool hasHost() const { return host; }
    [[nodiscard]] int protocolVersion() const { return 0; }

    std::atomic<bool> host = false;
    std::mutex lock;
    QStringList items;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service) {
        const std::lock_guard guard(lock);
        items.append(service);
    }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
};

/// A program on the bus that keeps the list of status items and has a bar, as desktops bring it along. It
/// answers in a thread of its own, also while the test's thread waits for the answer.
class NotifierWatcherStandIn {
public:
    enum class Host { present, absent };

    explicit NotifierWatcherStandIn(const std::string& address, Host host = Host::present)
        : name(nextName()), bus(QDBusConnection::connectToBus(QString::fromStdString(address), name)) {
        object->host = host == Host::present;
        object->moveToThread(&thread);
        thread.start();
        inThread([this] {
            bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), object,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties |
                                   QDBusConnection::ExportAllSignals);
            bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        });
    }
    NotifierWatcherStandIn(const NotifierWatcherStandIn&) = delete;
    NotifierWatcherStandIn& operator=(const NotifierWatcherStandIn&) = delete;
    ~NotifierWatcherStandIn() {
        QDBusConnection::disconnectFromBus(name);
        inThread([this] { delete object; });
        thread.quit();
        thread.wait();
    }

    [[nodiscard]] QDBusConnection& connection() { return bus; }
    /// What registered so far.
    [[nodiscard]] QStringList items() {
        const std::lock_guard guard(object->lock);
        return object->items;
    }
    void addHost() {
        object->host = true;
        inThread([this] { Q_EMIT object->StatusNotifierHostRegistered(); });
    }

private:
    static QString nextName() {
        static int count = 0;
        return QStringLiteral("watcher-%1").arg(++count);
    }
    template<typename Function>
    void inThread(Function work) {
        QMetaObject::invokeMethod(object, work, Qt::BlockingQueuedConnection);
    }

    QString name;
    QDBusConnection bus;
    QThread thread;
    NotifierWatcherObject* object = new NotifierWatcherObject;
};

} // namespace quillary::test
