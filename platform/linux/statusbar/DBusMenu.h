#pragma once

#include "platform/linux/statusbar/DBusMenuLayout.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>

#include <functional>

namespace quillary {

/// One event of com.canonical.dbusmenu: (isvu).
struct DBusMenuEvent {
    int id = 0;
    QString kind{};
    QDBusVariant data{};
    uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event);

/// A menu that another program shows, by com.canonical.dbusmenu version 3. The menu is rebuilt when the other
/// program announces that it will show it, and when it reads the whole layout, because some programs never
/// announce it.
class DBusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    /// `source` builds the current menu; called on the main thread before the menu may be shown.
    explicit DBusMenu(std::function<Menu()> source);

    [[nodiscard]] uint version() const { return protocolVersion; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] QString status() const;
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS:
    // The names are the protocol's.
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   quillary::DBusMenuNode& layout);
    QList<quillary::DBusMenuLine> GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<quillary::DBusMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    static constexpr uint protocolVersion = 3;

    bool refresh();
    [[nodiscard]] bool handle(int id, const QString& kind);
    void refuse(int id) const;

    std::function<Menu()> m_source;
    DBusMenuLayout m_layout;
};

} // namespace quillary

Q_DECLARE_METATYPE(quillary::DBusMenuEvent)
