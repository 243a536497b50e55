#include "platform/linux/colours/PortalColorScheme.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

const auto driver = u"org.freedesktop.DBus"_s;
const auto driverPath = u"/org/freedesktop/DBus"_s;
const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;
const auto space = u"org.freedesktop.appearance"_s;
const auto key = u"color-scheme"_s;

} // namespace

PortalColorScheme::PortalColorScheme() {
    connect(&m_bus, &LateSessionBus::connected, this, &PortalColorScheme::follow);
    connect(&m_bus, &LateSessionBus::absent, this, [this] { setScheme(Scheme::unspecified); });
}

void PortalColorScheme::follow() {
    auto connection = *m_bus.connection();
    // From any sender: with the portal's name the toolkit would ask the bus for its owner, and block.
    connection.connect({}, portalPath, settings, u"SettingChanged"_s, {space, key}, {}, this,
                       SLOT(settingChanged(QDBusMessage)));
    connection.connect(driver, driverPath, driver, u"NameOwnerChanged"_s, {portal}, {}, this,
                       SLOT(nameOwnerChanged(QString, QString, QString)));
    ask();
}

void PortalColorScheme::ask() {
    if (!m_bus.connection()) {
        return;
    }
    auto message = QDBusMessage::createMethodCall(portal, portalPath, settings, u"Read"_s);
    message.setAutoStartService(false);
    message << space << key;
    auto* pending = new QDBusPendingCallWatcher(m_bus.connection()->asyncCall(message), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, before = m_changes] {
        pending->deleteLater();
        // The toolkit may deliver a change before an answer that arrived earlier.
        if (m_changes != before) {
            return;
        }
        const QDBusMessage reply = pending->reply();
        if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
            take(reply.arguments().constFirst());
        }
    });
}

void PortalColorScheme::settingChanged(const QDBusMessage& signal) {
    if (signal.arguments().size() == 3) {
        ++m_changes;
        take(signal.arguments().constLast());
    }
}

void PortalColorScheme::nameOwnerChanged(const QString& /*name*/, const QString& /*before*/,
                                         const QString& after) {
    // A restarted portal does not emit a change. While there is no portal, its last value stays valid.
    if (!after.isEmpty()) {
        ask();
    }
}

void PortalColorScheme::take(const QVariant& value) {
    QVariant inner = value;
    // The first version of the interface wraps its answer twice.
    for (int depth = 0; depth < 3 && inner.metaType() == QMetaType::fromType<QDBusVariant>(); ++depth) {
        inner = inner.value<QDBusVariant>().variant();
    }
    constexpr unsigned preferDark = 1;
    constexpr unsigned preferLight = 2;
    bool isNumber = false;
    const unsigned number = inner.toUInt(&isNumber);
    setScheme(isNumber && number == preferDark    ? Scheme::dark
              : isNumber && number == preferLight ? Scheme::light
                                                  : Scheme::unspecified);
}

void PortalColorScheme::setScheme(Scheme scheme) {
    if (scheme != m_scheme) {
        m_scheme = scheme;
        Q_EMIT changed();
    }
}

} // namespace quillary
