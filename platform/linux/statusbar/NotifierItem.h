#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPoint>

namespace quillary {

/// A picture as StatusNotifierItem carries it, (iiay): ARGB, 32 bits in network byte order, not
/// premultiplied.
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes{};

    /// The icon in all sizes that status bars use, at one and two device pixels per point.
    [[nodiscard]] static QList<NotifierPixmap> allOf(const QIcon& icon);
};

/// What is shown while the pointer rests on the item: (sa(iiay)ss).
struct NotifierToolTip {
    QString iconName{};
    QList<NotifierPixmap> pixmaps{};
    QString title{};
    QString text{};
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// The program's item in a status bar that speaks org.kde.StatusNotifierItem (freedesktop.org, Status
/// Notifier Item). A bar shows the menu itself, or calls `ContextMenu`.
class NotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ title CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconName READ noName CONSTANT)
    Q_PROPERTY(QList<quillary::NotifierPixmap> IconPixmap READ pixmaps CONSTANT)
    Q_PROPERTY(QString IconAccessibleDesc READ description CONSTANT)
    Q_PROPERTY(QString OverlayIconName READ noName CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ noName CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ noName CONSTANT)
    Q_PROPERTY(quillary::NotifierToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    NotifierItem(const QIcon& symbol, QString description, QString menu);

    [[nodiscard]] QString category() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString status() const;
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString noName() const { return {}; }
    [[nodiscard]] QList<NotifierPixmap> pixmaps() const { return m_pixmaps; }
    [[nodiscard]] QString description() const { return m_description; }
    [[nodiscard]] NotifierToolTip toolTip() const { return {.title = m_description}; }
    [[nodiscard]] bool itemIsMenu() const { return true; }
    [[nodiscard]] QDBusObjectPath menu() const { return m_menu; }

public Q_SLOTS:
    // The names are the protocol's. Positions are pixels of the screen; 0, 0 when the bar does not know it.
    void Activate(int x, int y) { Q_EMIT menuWanted(QPoint(x, y)); }
    void ContextMenu(int x, int y) { Q_EMIT menuWanted(QPoint(x, y)); }
    void SecondaryActivate(int /*x*/, int /*y*/) {}
    void Scroll(int /*delta*/, const QString& /*orientation*/) {}

Q_SIGNALS:
    Q_SCRIPTABLE void NewStatus(const QString& status);
    /// The bar requests the menu at that position, in pixels of the screen.
    void menuWanted(QPoint position);

private:
    QString m_description;
    QDBusObjectPath m_menu;
    QList<NotifierPixmap> m_pixmaps;
};

} // namespace quillary

Q_DECLARE_METATYPE(quillary::NotifierPixmap)
Q_DECLARE_METATYPE(quillary::NotifierToolTip)
