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

/// The part of a desktop that keeps the list of status items on the bus and shows them. It answers on its own
/// thread, so that the test's thread may block in a call.
class NotifierWatcherStandIn {
public:
    enum class Host { present, absent };

    explicit NotifierWatcherStandIn(const std::string& address, Host host = Host::present)
        : m_name(nextName()), m_bus(QDBusConnection::connectToBus(QString::fromStdString(address), m_name)) {
        m_object->host = host == Host::present;
        m_object->moveToThread(&m_thread);
        m_thread.start();
        inThread([this] {
            m_bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), m_object,
                                 QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties |
                                     QDBusConnection::ExportAllSignals);
            m_bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        });
    }
    NotifierWatcherStandIn(const NotifierWatcherStandIn&) = delete;
    NotifierWatcherStandIn& operator=(const NotifierWatcherStandIn&) = delete;
    ~NotifierWatcherStandIn() {
        QDBusConnection::disconnectFromBus(m_name);
        inThread([this] { delete m_object; });
        m_thread.quit();
        m_thread.wait();
    }

    [[nodiscard]] QDBusConnection& connection() { return m_bus; }
    /// The items that have registered so far.
    [[nodiscard]] QStringList items() {
        const std::lock_guard guard(m_object->lock);
        return m_object->items;
    }
    void addHost() {
        m_object->host = true;
        inThread([this] { Q_EMIT m_object->StatusNotifierHostRegistered(); });
    }

private:
    static QString nextName() {
        static int count = 0;
        return QStringLiteral("watcher-%1").arg(++count);
    }
    template<typename Function>
    void inThread(Function work) {
        QMetaObject::invokeMethod(m_object, work, Qt::BlockingQueuedConnection);
    }

    QString m_name;
    QDBusConnection m_bus;
    QThread m_thread;
    NotifierWatcherObject* m_object = new NotifierWatcherObject;
};

} // namespace quillary::test
