#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quillary::test {

/// A part of a program as assistive technology sees it, read anew at each call over the accessibility bus
/// (AT-SPI 2). What cannot be read is empty.
class AccessibleNode {
public:
    /// The states that the tests ask for, by their numbers in the protocol.
    enum class State { checked = 4, enabled = 8, focusable = 11, focused = 12, showing = 25, checkable = 41 };

    AccessibleNode(QDBusConnection bus, QString service, QString path);

    [[nodiscard]] std::string name() const;
    /// The role's name, "check box".
    [[nodiscard]] std::string role() const;
    [[nodiscard]] bool has(State state) const;
    [[nodiscard]] std::vector<AccessibleNode> children() const;
    /// The first part below this one, depth first, for which that holds.
    [[nodiscard]] std::optional<AccessibleNode>
    find(const std::function<bool(const AccessibleNode&)>& condition) const;
    [[nodiscard]] std::optional<AccessibleNode> find(const std::string& role, const std::string& name) const;
    /// Its place on the screen, device pixels.
    [[nodiscard]] QRect extents() const;
    /// Does the first of its actions.
    void act() const;
    [[nodiscard]] double value(const QString& which = QStringLiteral("CurrentValue")) const;
    void setValue(double value) const;

private:
    [[nodiscard]] QVariantList call(const QString& interface, const QString& method,
                                    const QVariantList& arguments = {}) const;
    [[nodiscard]] QVariant property(const QString& interface, const QString& name) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// The accessibility bus of a session, with assistive technology switched on. It needs the session's bus, and
/// dies with it or with this object.
class AccessibilityBus {
public:
    /// `sessionBus`: its address.
    explicit AccessibilityBus(const std::string& sessionBus);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus&) = delete;
    AccessibilityBus& operator=(const AccessibilityBus&) = delete;

    [[nodiscard]] bool isRunning() const { return m_bus.has_value(); }
    /// The root of the tree: its children are the programs.
    [[nodiscard]] AccessibleNode desktop() const;

private:
    pid_t m_process = 0;
    std::optional<QDBusConnection> m_bus;
};

} // namespace quillary::test
