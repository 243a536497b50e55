#include "app/DebugSnapshot.h"

#include "app/DisplayName.h"
#include "app/DockManager.h"
#include "app/DockModel.h"
#include "app/DockPanel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "core/AtomicFile.h"
#include "platform/Platform.h"
#include "platform/Scheduler.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <string_view>

namespace quillary {

namespace {

// By then the docks stand in their places and the first memory figures have arrived.
constexpr double settlingTime = 8.0;
// By then the settings window has been drawn.
constexpr double settingsTime = 1.0;

void write(const std::filesystem::path& file, std::string_view bytes) {
    static_cast<void>(AtomicFile::write(file, bytes));
}

// In the order of their creation; the toolkit lists the newest first.
QWindowList windowsInOrder() {
    QWindowList windows = QGuiApplication::allWindows();
    std::ranges::reverse(windows);
    return windows;
}

std::string pngOf(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? bytes.toStdString() : std::string();
}

} // namespace

std::unique_ptr<DebugSnapshot> DebugSnapshot::runIfRequested(DockManager& manager, Platform& platform,
                                                             std::function<void()> openSettings) {
    const QByteArray folder = qgetenv(variable);
    if (folder.isEmpty()) {
        return nullptr;
    }
    return std::make_unique<DebugSnapshot>(std::filesystem::path(folder.toStdString()), manager, platform,
                                           std::move(openSettings), [] { QCoreApplication::quit(); });
}

DebugSnapshot::DebugSnapshot(std::filesystem::path folder, DockManager& manager, Platform& platform,
                             std::function<void()> showSettings, std::function<void()> terminate)
    : m_folder(std::move(folder)),
      m_manager(manager),
      m_platform(platform),
      m_showSettings(std::move(showSettings)),
      m_terminate(std::move(terminate)),
      m_work(platform.scheduler().after(settlingTime, [this] { takeDocks(); })) {}

DebugSnapshot::~DebugSnapshot() = default;

void DebugSnapshot::takeDocks() {
    writeDockPictures();
    m_showSettings();
    m_work = m_platform.scheduler().after(settingsTime, [this] { finish(); });
}

void DebugSnapshot::finish() {
    writeSettingsPicture();
    write(m_folder / "snapshot-report.txt", report(m_manager, m_platform.files()));
    m_terminate();
}

void DebugSnapshot::writeDockPictures() const {
    // Pictures carry the window's place among all windows of the program.
    const auto windows = windowsInOrder();
    for (const auto& [key, panel] : m_manager.panels()) {
        const auto index = windows.indexOf(panel->nativeWindow());
        if (index < 0 || !panel->isVisible() || panel->model().hidden()) {
            continue;
        }
        writePicture("screenshot-dock-" + std::to_string(index) + ".png", panel->grab());
    }
}

void DebugSnapshot::writeSettingsPicture() const {
    const auto widgets = QApplication::topLevelWidgets();
    const auto windows = windowsInOrder();
    const auto titled = std::ranges::find(windows, QStringLiteral("Quillary Settings"), &QWindow::title);
    if (titled == windows.end()) {
        return;
    }
    const auto widget = std::ranges::find(widgets, *titled, &QWidget::windowHandle);
    if (widget != widgets.end()) {
        writePicture("screenshot-settings.png", (*widget)->grab().toImage());
    }
}

void DebugSnapshot::writePicture(const std::string& name, const QImage& picture) const {
    const std::string png = pngOf(picture);
    if (!png.empty()) {
        write(m_folder / name, png);
    }
}

std::string DebugSnapshot::report(const DockManager& manager, const FileFacts& files) {
    const MemoryMonitor& memory = *manager.memory;
    const MemoryStats& stats = memory.stats();
    std::string text = "showsMemory: ";
    text += manager.showMemorySetting() ? "true" : "false";
    text += "\npressure: ";
    text += rawValue(stats.pressure);
    text += " · used " + RamBadges::text(stats.used) + " of " + RamBadges::text(stats.total);
    for (const auto& model : manager.models()) {
        text += "\ndock " + model->screenName();
        for (const std::string& path : model->running->paths()) {
            const auto usage = memory.byApp().find(path);
            text += "\n  " + displayName(files, path) + " · ";
            text += usage == memory.byApp().end() ? "—" : RamBadges::text(usage->second);
            text += " · ";
            text += rawValue(memory.badge(path));
        }
    }
    return text;
}

} // namespace quillary
