#include "platform/linux/statusbar/DBusMenu.h"

#include <QDBusMetaType>
#include <QGuiApplication>

#include <utility>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

void registerTypes() {
    static const bool done = [] {
        qDBusRegisterMetaType<DBusMenuNode>();
        qDBusRegisterMetaType<DBusMenuLine>();
        qDBusRegisterMetaType<QList<DBusMenuLine>>();
        qDBusRegisterMetaType<DBusMenuEvent>();
        qDBusRegisterMetaType<QList<DBusMenuEvent>>();
        qDBusRegisterMetaType<QList<QStringList>>();
        return true;
    }();
    static_cast<void>(done);
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.kind << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.kind >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

DBusMenu::DBusMenu(std::function<Menu()> source) : m_source(std::move(source)) {
    registerTypes();
}

QString DBusMenu::textDirection() const {
    return QGuiApplication::isRightToLeft() ? u"rtl"_s : u"ltr"_s;
}

QString DBusMenu::status() const {
    return u"normal"_s;
}

bool DBusMenu::refresh() {
    const bool changed = m_layout.update(m_source());
    if (changed) {
        Q_EMIT LayoutUpdated(m_layout.revision(), 0);
    }
    return changed;
}

void DBusMenu::refuse(int id) const {
    if (calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs, u"There is no line %1."_s.arg(id));
    }
}

uint DBusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         DBusMenuNode& layout) {
    if (parentId == 0) {
        refresh();
    }
    if (auto found = m_layout.node(parentId, recursionDepth, propertyNames)) {
        layout = std::move(*found);
    } else {
        refuse(parentId);
    }
    return m_layout.revision();
}

QList<DBusMenuLine> DBusMenu::GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames) {
    QList<DBusMenuLine> result;
    for (const int id : ids) {
        if (m_layout.contains(id)) {
            result.append({.id = id, .properties = m_layout.properties(id, propertyNames)});
        }
    }
    return result;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name) {
    const auto value = m_layout.properties(id, {name}).value(name);
    if (!value.isValid()) {
        refuse(id);
        return {};
    }
    return QDBusVariant(value);
}

bool DBusMenu::handle(int id, const QString& kind) {
    if (!m_layout.contains(id)) {
        return false;
    }
    const auto* entry = m_layout.entry(id);
    if (kind == "clicked"_L1 && entry != nullptr) {
        // Deferred until the call is answered, and on a copy: the handler may destroy this menu.
        QMetaObject::invokeMethod(
            this, [chosen = *entry] { chosen.fire(); }, Qt::QueuedConnection);
    }
    return true;
}

void DBusMenu::Event(int id, const QString& eventId, const QDBusVariant& /*data*/, uint /*timestamp*/) {
    if (!handle(id, eventId)) {
        refuse(id);
    }
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent>& events) {
    QList<int> unknown;
    for (const auto& event : events) {
        if (!handle(event.id, event.kind)) {
            unknown.append(event.id);
        }
    }
    return unknown;
}

bool DBusMenu::AboutToShow(int id) {
    return id == 0 && refresh();
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    QList<int> changed;
    for (const int id : ids) {
        if (!m_layout.contains(id)) {
            idErrors.append(id);
        } else if (AboutToShow(id)) {
            changed.append(id);
        }
    }
    return changed;
}

} // namespace quillary
