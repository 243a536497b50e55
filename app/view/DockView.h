#pragma once

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

    /// What starts the drag of an item, shown as that picture; it returns when the drag has ended.
    std::function<void(const std::string& path, const QImage& picture)> startDrag;

    /// Lets the view follow what the window that shows it can do. The window must outlive the view's use.
    void attach(PanelWindow& window);

    /// Shows the state as it is at once, without movement: for a dock that nobody has seen yet.
    void settle();

    /// The pointer moved there, in global points: a press may become a drag by that. Window systems need not
    /// send movements to windows.
    void movePointer(QPointF location);

    /// What is shown now.
    [[nodiscard]] const DockScene& scene() const { return m_scene; }
    /// Whether a frame is due although nothing else happens.
    [[nodiscard]] bool animating() const { return m_frameWork != nullptr; }

Q_SIGNALS:
    /// The context menu is asked for at a point of the panel.
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
    void beginDrag(const std::string& path);
    void hover(QDropEvent& event);
    [[nodiscard]] QPointF scenePoint(QPointF position) const;
    [[nodiscard]] QImage dragPicture(const std::string& path);
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
    [[nodiscard]] std::optional<std::string> pathAt(QPointF position) const;

    std::shared_ptr<DockModel> m_model;
    std::shared_ptr<IconCache> m_icons;
    Platform& m_platform;
    PanelWindow* m_window = nullptr;
    IconSprites m_sprites;
    Plates m_plates;
    LabelText m_renderedLabel;
    QFontMetricsF m_labelMetrics;
    DockScene m_scene;
    /// The same as it falls on the device's pixels: what looks equal is equal here.
    DockScene m_drawn;
    /// What it was fitted to.
    PixelGrid m_grid;
    DockContents m_contents;
    DockTexts m_texts;
    /// The labels that were asked for since the contents were last read, by path.
    std::map<std::string, QString, std::less<>> m_labels;
    /// Laying out a text costs more than the rest of a scene: the label's last one is remembered.
    QString m_measuredText;
    double m_measuredWidth = 0;

    /// How far magnification has come in since the pointer entered, or gone since it left.
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
