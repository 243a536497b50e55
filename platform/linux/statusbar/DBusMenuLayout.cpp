#include "platform/linux/statusbar/DBusMenuLayout.h"

#include <QDBusVariant>

#include <algorithm>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

// Far below the greatest int, far above what a session consumes.
constexpr int lastFirstId = 1'000'000'000;

bool looksSame(const Menu& one, const Menu& other) {
    return std::ranges::equal(one, other, [](const auto& a, const auto& b) {
        return a.kind == b.kind && a.title == b.title && a.checked == b.checked && a.enabled == b.enabled &&
               a.keyEquivalent == b.keyEquivalent && looksSame(a.items, b.items);
    });
}

// In the protocol an underscore precedes the access key; two stand for a literal one.
QString label(const std::string& title) {
    auto text = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
    return text.replace(u'_', u"__"_s);
}

QVariantMap propertiesOf(const ClosureMenuItem& item) {
    if (item.kind == ClosureMenuItem::Kind::separator) {
        return {{u"type"_s, u"separator"_s}};
    }
    QVariantMap map{{u"label"_s, label(item.title)}};
    if (!item.enabled) {
        map.insert(u"enabled"_s, false);
    }
    if (item.kind == ClosureMenuItem::Kind::submenu) {
        map.insert(u"children-display"_s, u"submenu"_s);
    }
    if (item.checked) {
        map.insert(u"toggle-type"_s, u"checkmark"_s);
        map.insert(u"toggle-state"_s, 1);
    }
    if (item.keyEquivalent != 0) {
        const QStringList keys{u"Control"_s, QString(QChar::fromLatin1(item.keyEquivalent))};
        map.insert(u"shortcut"_s, QVariant::fromValue(QList<QStringList>{keys}));
    }
    return map;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuNode& node) {
    argument.beginStructure();
    argument << node.id << node.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const auto& child : node.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuNode& node) {
    argument.beginStructure();
    argument >> node.id >> node.properties;
    node.children.clear();
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        node.children.push_back(qdbus_cast<DBusMenuNode>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuLine& line) {
    argument.beginStructure();
    argument << line.id << line.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuLine& line) {
    argument.beginStructure();
    argument >> line.id >> line.properties;
    argument.endStructure();
    return argument;
}

bool DBusMenuLayout::update(Menu menu) {
    const bool same = looksSame(m_menu, menu);
    m_menu = std::move(menu);
    if (!same) {
        ++m_revision;
        m_firstId = m_nextId > lastFirstId ? 1 : m_nextId;
    }
    renumber(m_firstId);
    return !same;
}

void DBusMenuLayout::renumber(int start) {
    m_lines.clear();
    m_nextId = start;
    m_lines[0] = {.children = number(m_menu)};
}

std::vector<int> DBusMenuLayout::number(const Menu& items) {
    std::vector<int> ids;
    for (const auto& item : items) {
        const int id = m_nextId++;
        ids.push_back(id);
        m_lines[id] = {.item = &item, .children = number(item.items)};
    }
    return ids;
}

bool DBusMenuLayout::contains(int id) const {
    return m_lines.contains(id);
}

QVariantMap DBusMenuLayout::properties(int id, const QStringList& names) const {
    const auto line = m_lines.find(id);
    if (line == m_lines.end()) {
        return {};
    }
    auto map = line->second.item == nullptr ? QVariantMap{{u"children-display"_s, u"submenu"_s}}
                                            : propertiesOf(*line->second.item);
    if (!names.isEmpty()) {
        map.removeIf([&names](const auto& entry) { return !names.contains(entry.key()); });
    }
    return map;
}

std::optional<DBusMenuNode> DBusMenuLayout::node(int id, int depth, const QStringList& names) const {
    const auto line = m_lines.find(id);
    if (line == m_lines.end()) {
        return std::nullopt;
    }
    DBusMenuNode result{.id = id, .properties = properties(id, names)};
    if (depth != 0) {
        for (const int child : line->second.children) {
            result.children.push_back(*node(child, depth - 1, names));
        }
    }
    return result;
}

const ClosureMenuItem* DBusMenuLayout::entry(int id) const {
    const auto line = m_lines.find(id);
    const auto* item = line == m_lines.end() ? nullptr : line->second.item;
    return item != nullptr && item->enabled && item->kind == ClosureMenuItem::Kind::entry ? item : nullptr;
}

} // namespace quillary
