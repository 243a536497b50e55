#include "tests/fake/FakePlatform.h"

#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace quillary::test {

namespace {

std::string lastComponent(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

} // namespace

void FakeScreens::set(std::vector<ScreenInfo> screens) {
    connected = std::move(screens);
    Q_EMIT changed();
}

std::string FakeWorkspace::displayName(const std::string& path) const {
    return lastComponent(path);
}

QIcon FakeWorkspace::icon(const std::string& path) const {
    iconRequests.push_back(path);
    if (const auto known = icons.find(path); known != icons.end()) {
        return known->second;
    }
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::blue);
    return {pixmap};
}

void FakeWorkspace::openWith(const std::vector<std::string>& paths, const std::string& application) {
    std::string call = "openWith " + application;
    for (const std::string& path : paths) {
        call += " " + path;
    }
    calls.push_back(call);
}

void FakeWorkspace::terminate(const RunningApplication& application) {
    calls.push_back("terminate " + application.bundlePath.value_or("?"));
}

void FakeWorkspace::launch(const std::string& path) {
    running.push_back({.handle = running.size() + 1,
                       .policy = ActivationPolicy::regular,
                       .bundlePath = path,
                       .bundleIdentifier = "id." + lastComponent(path)});
    Q_EMIT applicationLaunched();
}

void FakeWorkspace::quit(const std::string& path) {
    std::erase_if(running, [&path](const RunningApplication& entry) { return entry.bundlePath == path; });
    Q_EMIT applicationTerminated();
}

void FakeWorkspace::activate(const std::string& path) {
    const auto found =
        std::ranges::find_if(running, [&path](const auto& entry) { return entry.bundlePath == path; });
    front = found == running.end() ? std::nullopt : std::optional(*found);
    Q_EMIT applicationActivated();
}

void FakeWorkspace::setFullScreen(std::optional<QRectF> frame) {
    fullScreen = frame;
    Q_EMIT fullScreenChanged();
}

void FakeSystemDock::write(const DockPrefs& values) {
    prefs = values;
    calls.emplace_back("write");
}

void FakePointer::moveTo(QPointF point) {
    place = point;
    Q_EMIT moved(point);
}

void FakePanelWindow::setFrame(const QRect& frame) {
    placed = frame;
    ++frameChanges;
}

void FakePanelWindow::insistOn(const QRect& frame) {
    placed = frame;
    Q_EMIT frameChanged();
}

void FakePanelWindow::orderFront() {
    visible = true;
    ++ordersFront;
}

QImage FakePanelWindow::grab() {
    QImage picture(placed.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::red);
    return picture;
}

void FakePanelWindow::popUpMenu(Menu shown, QPoint location, std::function<void()> closed) {
    dismissMenu();
    menu = std::move(shown);
    menuLocation = location;
    m_menuClosed = std::move(closed);
    ++menusOpened;
}

void FakePanelWindow::close() {
    visible = false;
    menu.reset();
    m_menuClosed = nullptr;
}

bool FakePanelWindow::choose(const std::vector<std::string>& titles) {
    // Taken out first: what is chosen may open another menu.
    const Menu open = menu.value_or(Menu());
    const QPointer self(this);
    const auto closed = std::exchange(m_menuClosed, nullptr);
    menu.reset();
    if (!test::choose(open, titles)) {
        menu = open;
        m_menuClosed = closed;
        return false;
    }
    // The entry may have closed the window or destroyed it.
    if (self && visible && closed) {
        closed();
    }
    return true;
}

void FakePanelWindow::dismissMenu() {
    menu.reset();
    if (const auto closed = std::exchange(m_menuClosed, nullptr)) {
        closed();
    }
}

bool choose(const Menu& menu, const std::vector<std::string>& titles) {
    const Menu* level = &menu;
    for (std::size_t depth = 0; depth < titles.size(); ++depth) {
        const auto found = std::ranges::find_if(
            *level, [&title = titles[depth]](const ClosureMenuItem& item) { return item.title == title; });
        if (found == level->end() || !found->enabled) {
            return false;
        }
        if (depth + 1 == titles.size()) {
            found->fire();
            return found->kind == ClosureMenuItem::Kind::entry;
        }
        level = &found->items;
    }
    return false;
}

void FakePanelWindow::setComposited(bool composited) {
    blends = composited;
    Q_EMIT compositedChanged();
}

MemorySource::Sampler FakeMemorySource::sampler() {
    ++samplersMade;
    return [found = sample] { return found; };
}

Result<> FakeLoginItem::change(Status wanted) {
    ++requests;
    if (refusal) {
        return Failure(*refusal);
    }
    current = wanted;
    return {};
}

Result<> FakeLoginItem::registerItem() {
    return change(Status::enabled);
}

Result<> FakeLoginItem::unregisterItem() {
    return change(Status::disabled);
}

std::unique_ptr<PanelWindow> FakePlatform::makePanelWindow(QWidget& contents) {
    contents.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    contents.winId();
    auto window = std::make_unique<FakePanelWindow>();
    windows.push_back(window.get());
    ++windowsMade;
    QObject::connect(window.get(), &QObject::destroyed, [this](QObject* gone) {
        std::erase_if(windows, [gone](auto* known) { return known == gone; });
    });
    return window;
}

std::unique_ptr<StatusItem> FakePlatform::makeStatusItem(const QIcon& symbol, const std::string& description,
                                                         std::function<Menu()> menuNeedsUpdate) {
    auto item = std::make_unique<FakeStatusItem>(symbol, description, std::move(menuNeedsUpdate));
    statusItem = item.get();
    QObject::connect(item.get(), &QObject::destroyed, [this] { statusItem = nullptr; });
    return item;
}

std::filesystem::path FakePlatform::applicationSupportDirectory() const {
    return m_folder.path().toStdString();
}

ScreenInfo screenNamed(const std::string& name, const QRectF& frame) {
    return {.displayNumber = 1, .uuid = "KEY-" + name, .name = name, .frame = frame, .visibleFrame = frame};
}

} // namespace quillary::test
