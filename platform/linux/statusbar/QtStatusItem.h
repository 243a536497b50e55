#pragma once

#include "platform/Menu.h"
#include "platform/StatusItem.h"
#include "platform/linux/statusbar/DBusMenu.h"
#include "platform/linux/statusbar/NotifierItem.h"
#include "platform/linux/statusbar/NotifierWatcher.h"

#include <QIcon>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>

class QWindow;

namespace quillary {

/// The status item on desktops that support StatusNotifierItem on the session bus; on others an icon in the
/// window system's tray, if there is one. The bus is not left to the toolkit, which chooses between the two
/// once in a process and misses bars that start later.
class QtStatusItem final : public StatusItem {
    Q_OBJECT

public:
    /// Positions in terms of the window system.
    struct Surroundings {
        /// Converts a position as bars report it (pixels of the window system) to global points.
        std::function<QPoint(QPoint)> toPoints;
        /// The frame of the screen nearest to the point, in global points.
        std::function<QRect(QPoint)> frameNear;
        /// See QtMenu::Place.
        std::function<bool(QWindow&)> grab;
    };

    /// Shows nothing yet. `description` is UTF-8, read to the user by assistive technology; `menuSource`
    /// builds the menu that is shown next.
    QtStatusItem(const QIcon& symbol, const std::string& description, std::function<Menu()> menuSource,
                 Surroundings surroundings);
    ~QtStatusItem() override;

    [[nodiscard]] bool isShown() const override { return m_isShown; }

    /// Whether the window system has a tray of its own now.
    void setTrayPresent(bool present);

private:
    void registerObjects();
    void update();
    [[nodiscard]] bool trayMayBeUsed() const;
    void showTrayIcon();
    void openAtIcon();
    void open(QPoint corner);

    QIcon m_symbol;
    QString m_description;
    std::function<Menu()> m_menuSource;
    Surroundings m_surroundings;
    DBusMenu m_menu;
    NotifierItem m_item;
    NotifierWatcher m_watcher;
    std::unique_ptr<QSystemTrayIcon> m_tray;
    bool m_trayPresent = false;
    bool m_isShown = false;
};

} // namespace quillary
