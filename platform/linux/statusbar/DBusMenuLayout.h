#pragma once

#include "platform/Menu.h"

#include <QDBusArgument>
#include <QStringList>
#include <QVariantMap>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace quillary {

/// One line of a menu as com.canonical.dbusmenu describes it, with the lines below it: (ia{sv}av).
struct DBusMenuNode {
    int id = 0;
    QVariantMap properties{};
    std::vector<DBusMenuNode> children{};
};

/// The properties of one line: (ia{sv}).
struct DBusMenuLine {
    int id = 0;
    QVariantMap properties{};
};

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuLine& line);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuLine& line);

/// A Menu with the ids by which com.canonical.dbusmenu addresses its lines; 0 is the menu itself. A line
/// keeps its id while the menu looks the same. The ids of a menu that looked different are not used again, so
/// that a choice from an outdated menu has no effect.
class DBusMenuLayout {
public:
    /// Replaces the menu and its handlers; returns whether it looks different from the one before.
    [[nodiscard]] bool update(Menu menu);
    /// Incremented whenever the menu looks different; never 0.
    [[nodiscard]] std::uint32_t revision() const { return m_revision; }

    [[nodiscard]] bool contains(int id) const;
    /// The line with `depth` levels below it, all when `depth` is negative; absent when there is no such
    /// line. `names` selects properties; all when it is empty.
    [[nodiscard]] std::optional<DBusMenuNode> node(int id, int depth, const QStringList& names) const;
    /// The properties that differ from the protocol's defaults; empty when there is no such line.
    [[nodiscard]] QVariantMap properties(int id, const QStringList& names) const;
    /// The enabled entry with that id; null when there is none.
    [[nodiscard]] const ClosureMenuItem* entry(int id) const;

private:
    struct Line {
        const ClosureMenuItem* item = nullptr;
        std::vector<int> children{};
    };

    [[nodiscard]] std::vector<int> number(const Menu& items);
    void renumber(int start);

    Menu m_menu;
    std::map<int, Line> m_lines{{0, {}}};
    int m_firstId = 1;
    int m_nextId = 1;
    std::uint32_t m_revision = 1;
};

} // namespace quillary

Q_DECLARE_METATYPE(quillary::DBusMenuNode)
Q_DECLARE_METATYPE(quillary::DBusMenuLine)
