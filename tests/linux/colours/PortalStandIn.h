#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <string>

namespace quillary::test {

/// The colour settings of a desktop's portal, on a separate connection to the bus.
class PortalStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// `scheme` is the initial value. It is wrapped once more than necessary, as by the interface's first
    /// version.
    PortalStandIn(const std::string& address, const QVariant& scheme)
        : m_bus(QDBusConnection::connectToBus(QString::fromStdString(address), QStringLiteral("portal"))),
          m_value(scheme) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~PortalStandIn() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    /// The user makes a choice; emits the change.
    void choose(const QString& space, const QString& key, const QVariant& chosen) {
        m_value = chosen;
        auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                 QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        signal << space << key << QVariant::fromValue(QDBusVariant(chosen));
        m_bus.send(signal);
    }

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers)
    QDBusVariant Read(const QString& space, const QString& key) { // NOLINT(readability-identifier-naming)
        asked = space.toStdString() + " " + key.toStdString();
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_value)));
    }

public: // NOLINT(readability-redundant-access-specifiers)
    std::string asked;

private:
    QDBusConnection m_bus;
    QVariant m_value;
};

} // namespace quillary::test
