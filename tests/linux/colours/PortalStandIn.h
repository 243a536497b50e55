#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <string>

namespace quillary::test {

/// The settings of a desktop's portal, as far as colours go, on a bus connection of its own.
class PortalStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// `scheme` is what it tells of first; wrapped once more than needed, as the interface's first version
    /// does.
    PortalStandIn(const std::string& address, const QVariant& scheme)
        : bus(QDBusConnection::connectToBus(QString::fromStdString(address), QStringLiteral("portal"))),
          value(scheme) {
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~PortalStandIn() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    /// The user chooses; it tells everybody.
    void choose(const QString& space, const QString& key, const QVariant& chosen) {
        value = chosen;
        auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                 QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        signal << space << key << QVariant::fromValue(QDBusVariant(chosen));
        bus.send(signal);
    }

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers)
    QDBusVariant Read(const QString& space, const QString& key) { // NOLINT(readability-identifier-naming)
        asked = space.toStdString() + " " + key.toStdString();
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
    }

public: // NOLINT(readability-redundant-access-specifiers)
    std::string asked;

private:
    QDBusConnection bus;
    QVariant value;
};

} // namespace quillary::test
