#pragma once

#include "platform/FileFacts.h"
#include "platform/FileIcons.h"
#include "platform/LoginItem.h"
#include "platform/MemorySource.h"
#include "platform/PanelWindow.h"
#include "platform/Platform.h"
#include "platform/PointerMonitor.h"
#include "platform/Screens.h"
#include "platform/SingleInstance.h"
#include "platform/StatusItem.h"
#include "platform/SystemDockPreferences.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "tests/fake/ManualScheduler.h"

#include <QIcon>
#include <QTemporaryDir>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillary::test {

class FakeScreens final : public Screens {
public:
    [[nodiscard]] std::vector<ScreenInfo> list() const override { return connected; }

    /// Connects exactly these screens and emits `changed`.
    void set(std::vector<ScreenInfo> screens);

    std::vector<ScreenInfo> connected;
};

class FakeWorkspace final : public Workspace, public FileFacts, public FileIcons {
public:
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override { return running; }
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override { return front; }
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override { return fullScreen; }
    [[nodiscard]] std::optional<std::string> ownBundleIdentifier() const override { return ownIdentifier; }
    [[nodiscard]] bool isApplication(const std::string& path) const override {
        return path.ends_with(".app");
    }
    [[nodiscard]] bool exists(const std::string& path) const override { return !missing.contains(path); }
    [[nodiscard]] std::string displayName(const std::string& path) const override;
    [[nodiscard]] QIcon icon(const std::string& path) const override;
    void openApplication(const std::string& path) override { calls.push_back("openApplication " + path); }
    void open(const std::string& path) override { calls.push_back("open " + path); }
    void openWith(const std::vector<std::string>& paths, const std::string& application) override;
    void reveal(const std::string& path) override { calls.push_back("reveal " + path); }
    void terminate(const RunningApplication& application) override;

    /// Starts or ends an application at the path and emits the signal of that.
    void launch(const std::string& path);
    void quit(const std::string& path);
    void activate(const std::string& path);
    /// Puts a focused full-screen window there, or none, and emits fullScreenChanged.
    void setFullScreen(std::optional<QRectF> frame);

    std::vector<RunningApplication> running;
    std::optional<RunningApplication> front;
    std::optional<QRectF> fullScreen;
    std::optional<std::string> ownIdentifier = "io.quillary.Quillary";
    std::set<std::string> missing;
    /// Icons of some paths; the others are blue squares.
    std::map<std::string, QIcon> icons;
    /// The calls, one line each: the operation and its paths.
    std::vector<std::string> calls;
    mutable std::vector<std::string> iconRequests;
};

class FakeSystemDock final : public SystemDockPreferences {
public:
    [[nodiscard]] DockPrefs read() const override { return prefs; }
    void write(const DockPrefs& values) override;
    void synchronise() override { calls.emplace_back("synchronise"); }
    void restart() override { calls.emplace_back("restart"); }
    [[nodiscard]] std::vector<std::string> pinnedItems() const override { return pinned; }

    DockPrefs prefs;
    std::vector<std::string> pinned{"/System/Library/CoreServices/Finder.app"};
    std::vector<std::string> calls;
};

class FakePointer final : public PointerMonitor {
public:
    [[nodiscard]] QPointF location() const override { return place; }
    void refresh() override { ++refreshes; }

    /// Moves the pointer and emits `moved`.
    void moveTo(QPointF point);

    QPointF place;
    int refreshes = 0;
};

class FakePanelWindow final : public PanelWindow {
public:
    void setFrame(const QRect& frame) override;
    [[nodiscard]] QRect frame() const override { return placed; }
    void setInputRegion(const QRegion& region) override { inputRegion = region; }
    void setIgnoresMouseEvents(bool ignores) override { ignoresMouseEvents = ignores; }
    void setVisibleShape(const QRegion& region) override { visibleShape = region; }
    [[nodiscard]] bool composited() const override { return blends; }
    [[nodiscard]] bool blursBehind() const override { return blurs; }
    void setBlurRegion(const QRegion& region) override { blurRegion = region; }
    void orderFront() override;
    void popUpMenu(Menu menu, QPoint location, std::function<void()> closed) override;
    /// An open menu closes with it, and its `closed` does not run.
    void close() override;
    [[nodiscard]] bool isVisible() const override { return visible; }
    [[nodiscard]] QImage grab() override;

    /// Chooses the entry of the open menu that these titles lead to ("Position", "Left"); false, and the menu
    /// stays open, when there is none or it cannot be chosen.
    bool choose(const std::vector<std::string>& titles);
    /// Closes the open menu without a choice.
    void dismissMenu();

    /// Moves and resizes the window as a window manager that insists does, and emits frameChanged.
    void insistOn(const QRect& frame);
    /// Starts or ends blending and emits compositedChanged.
    void setComposited(bool composited);

    QRect placed;
    int frameChanges = 0;
    int ordersFront = 0;
    QRegion inputRegion;
    QRegion visibleShape;
    QRegion blurRegion;
    bool blurs = false;
    bool ignoresMouseEvents = false;
    bool blends = true;
    bool visible = false;
    /// The menu that is open, and where; menusOpened counts all there were.
    std::optional<Menu> menu;
    QPoint menuLocation;
    int menusOpened = 0;

private:
    std::function<void()> m_menuClosed;
};

/// A status bar that a test starts and ends.
class FakeStatusItem final : public StatusItem {
public:
    FakeStatusItem(QIcon image, std::string accessibleName, std::function<Menu()> provider)
        : symbol(std::move(image)),
          description(std::move(accessibleName)),
          menuNeedsUpdate(std::move(provider)) {}
    [[nodiscard]] bool isShown() const override { return shown; }

    QIcon symbol;
    std::string description;
    std::function<Menu()> menuNeedsUpdate;
    bool shown = true;
};

class FakeInstance final : public SingleInstance {
public:
    [[nodiscard]] bool claim() override { return !taken; }

    bool taken = false;
};

class FakeMemorySource final : public MemorySource {
public:
    [[nodiscard]] Sampler sampler() override;

    /// What the samplers made from now on find.
    MemorySample sample;
    int samplersMade = 0;
};

class FakeLoginItem final : public LoginItem {
public:
    [[nodiscard]] Status status() const override { return current; }
    [[nodiscard]] Result<> registerItem() override;
    [[nodiscard]] Result<> unregisterItem() override;

    Status current = Status::disabled;
    /// The system refuses every request with this error.
    std::optional<std::string> refusal;
    int requests = 0;

private:
    [[nodiscard]] Result<> change(Status wanted);
};

/// Fires the entry that these titles lead to; false when there is none or it cannot be chosen.
bool choose(const Menu& menu, const std::vector<std::string>& titles);

class FakeLog final : public SystemLog {
public:
    void write(const std::string& line) override { lines.push_back(line); }

    std::vector<std::string> lines;
};

/// A whole system in memory: nothing happens in it but what a test does.
class FakePlatform final : public Platform {
public:
    [[nodiscard]] FakeScreens& screens() override { return m_screenList; }
    [[nodiscard]] FakeWorkspace& workspace() override { return m_applications; }
    [[nodiscard]] const FileFacts& files() const override { return m_applications; }
    [[nodiscard]] const FileIcons& icons() const override { return m_applications; }
    [[nodiscard]] FakeSystemDock& systemDock() override { return m_dock; }
    [[nodiscard]] FakePointer& pointer() override { return m_pointerMonitor; }
    [[nodiscard]] ManualScheduler& scheduler() override { return m_time; }
    [[nodiscard]] FakeLog& log() override { return m_lines; }
    [[nodiscard]] FakeInstance& instance() override { return m_only; }
    [[nodiscard]] FakeMemorySource& memory() override { return m_memorySource; }
    [[nodiscard]] FakeLoginItem& loginItem() override { return m_login; }
    [[nodiscard]] BundleInfo bundleInfo() const override { return bundle; }
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(const QIcon& symbol,
                                                             const std::string& description,
                                                             std::function<Menu()> menuNeedsUpdate) override;
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWidget& contents) override;
    [[nodiscard]] std::filesystem::path applicationSupportDirectory() const override;

    /// The windows made so far that still exist, in the order they were made in.
    std::vector<FakePanelWindow*> windows;
    int windowsMade = 0;
    /// The program's status item while it exists.
    FakeStatusItem* statusItem = nullptr;
    BundleInfo bundle;

private:
    QTemporaryDir m_folder;
    ManualScheduler m_time;
    FakeScreens m_screenList;
    FakeWorkspace m_applications;
    FakeSystemDock m_dock;
    FakePointer m_pointerMonitor;
    FakeLog m_lines;
    FakeInstance m_only;
    FakeMemorySource m_memorySource;
    FakeLoginItem m_login;
};

/// A screen of that name and frame whose visible frame is the whole of it; its key is "KEY-" and the name.
[[nodiscard]] ScreenInfo screenNamed(const std::string& name, const QRectF& frame);

} // namespace quillary::test
