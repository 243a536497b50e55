#pragma once

#include "app/ItemId.h"
#include "app/view/Animation.h"
#include "app/view/Appearance.h"
#include "app/view/DockContents.h"
#include "app/view/DockScene.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconSprites.h"
#include "app/view/ItemPress.h"
#include "app/view/LabelText.h"
#include "app/view/PixelFit.h"
#include "app/view/Plates.h"
#include "app/view/SceneMotion.h"
#include "app/view/drag/DragHover.h"

#include <QFontMetricsF>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace quillary {

class DockModel;
class IconCache;
class PanelWindow;
class Platform;
class ScheduledTask;

/// The contents of one dock's window: keeps a scene in step with the model, paints what changed of it, and
/// turns clicks into requests to open.
class DockView : public QWidget {
    Q_OBJECT

public:
    /// The platform must outlive the view.
    DockView(std::shared_ptr<DockModel> model, std::shared_ptr<IconCache> icons, Platform& platform);
    ~DockView() override;

    /// Starts the drag of an item, shown as that picture, and returns when the drag has ended. Tests replace
    /// it.
    std::function<void(const std::string& path, const QImage& picture)> startDrag;

    /// Connects the view to the window that shows it, whose blending and blurring it follows. The window must
    /// exist as long as the view is painted.
    void attach(PanelWindow& window);

    /// Shows the model's state at once, without transitions: for a dock that was not visible before.
    void settle();

    /// Handles a movement of the pointer to `location` (global points), which may turn a press into a drag.
    /// The window itself need not receive movements.
    void movePointer(QPointF location);

    /// The scene that is shown now.
    [[nodiscard]] const DockScene& scene() const { return m_scene; }
    /// Whether a next frame is scheduled.
    [[nodiscard]] bool animating() const { return m_frameWork != nullptr; }

Q_SIGNALS:
    /// The user requested the context menu at this point of the view.
    void menuRequested(QPointF position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class Contents { asKnown, readAgain };
    enum class Movement { none, fromWhatIsSeen };

    void followMouse();
    void followHidden();
    void movePress(QPointF position);
    void beginDrag(const ItemId& item);
    void hover(QDropEvent& event);
    [[nodiscard]] QPointF scenePoint(QPointF position) const;
    [[nodiscard]] QImage dragPicture(const ItemId& item);
    void refresh(Contents reading, Movement movement = Movement::none);
    void setScene(DockScene next);
    void updateShape();
    void updateBlur();
    void paint(QPainter& painter);
    void frame();
    [[nodiscard]] bool moving(double now) const;
    void followLaunching();
    [[nodiscard]] DockSceneState state(double now);
    [[nodiscard]] DockTexts makeTexts();
    [[nodiscard]] QString labelText(const std::string& path);
    [[nodiscard]] double labelWidth(const QString& text);
    [[nodiscard]] Appearance appearance() const;
    [[nodiscard]] std::optional<ItemId> itemAt(QPointF position) const;

    std::shared_ptr<DockModel> m_model;
    std::shared_ptr<IconCache> m_icons;
    Platform& m_platform;
    PanelWindow* m_window = nullptr;
    IconSprites m_sprites;
    Plates m_plates;
    LabelText m_renderedLabel;
    QFontMetricsF m_labelMetrics;
    DockScene m_scene;
    /// The scene fitted to the pixels of m_grid: scenes that look the same are equal here.
    DockScene m_drawn;
    /// The grid that m_drawn was fitted to.
    PixelGrid m_grid;
    DockContents m_contents;
    DockTexts m_texts;
    /// The texts of labels shown since the contents were last read, by path.
    std::map<std::string, QString, std::less<>> m_labels;
    /// The last text measured for the label: measuring costs more than building the rest of a scene.
    QString m_measuredText;
    double m_measuredWidth = 0;

    /// The share of magnification: rises to 1 after the pointer enters, falls to 0 after it leaves.
    EasedValue m_magnified;
    std::optional<double> m_mouseAxis;
    Spring m_hidden;
    SceneMotion m_motion;
    std::unique_ptr<ScheduledTask> m_frameWork;
    ItemPress m_press;
    DragHover m_drag;
    std::unique_ptr<ScheduledTask> m_dragWork;
};

} // namespace quillary
