#pragma once

#include "platform/linux/bus/LateSessionBus.h"

#include <QDBusMessage>
#include <QObject>

class QVariant;

namespace quillary {

/// The user's preference for dark or light colours, from the desktop's portal (XDG Desktop Portal, interface
/// org.freedesktop.portal.Settings, key color-scheme of org.freedesktop.appearance). Starts no program and
/// never blocks.
class PortalColorScheme final : public QObject {
    Q_OBJECT

public:
    enum class Scheme {
        /// The user has no preference, or there is no portal that knows it.
        unspecified,
        dark,
        light,
    };

    PortalColorScheme();

    [[nodiscard]] Scheme scheme() const { return m_scheme; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QDBusMessage& signal);
    void nameOwnerChanged(const QString& name, const QString& before, const QString& after);

private:
    void follow();
    void ask();
    void take(const QVariant& value);
    void setScheme(Scheme scheme);

    LateSessionBus m_bus;
    Scheme m_scheme = Scheme::unspecified;
    /// Counts the changes that the portal has emitted.
    unsigned m_changes = 0;
};

} // namespace quillary
