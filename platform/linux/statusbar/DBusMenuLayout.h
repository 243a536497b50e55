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

/// A Menu with the numbers by which com.canonical.dbusmenu speaks of its lines. 0 is the menu itself. A line
/// keeps its number as long as the menu looks the same; numbers of a menu that looked otherwise are never
/// used again, so that a choice from an outdated one means nothing.
class DBusMenuLayout {
public:
    /// Whether the menu looks otherwise than the one before. Its handlers are the ones that count from now
    /// on.
    [[nodiscard]] bool update(Menu menu);
    /// Counts how often the menu changed its looks; never 0.
    [[nodiscard]] std::uint32_t revision() const { return m_revision; }

    [[nodiscard]] bool contains(int id) const;
    /// The line and so many levels below it, all of them when that is negative; absent when there is no such
    /// line. Without names all properties are given.
    [[nodiscard]] std::optional<DBusMenuNode> node(int id, int depth, const QStringList& names) const;
    /// What differs from the protocol's default values.
    [[nodiscard]] QVariantMap properties(int id, const QStringList& names) const;
    /// The entry that can be chosen by that number; null when there is none.
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
