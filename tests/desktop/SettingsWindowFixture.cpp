#include "tests/desktop/SettingsWindowFixture.h"

#include <cstdlib>
#include <stdexcept>

namespace quillary::test {

namespace {

constexpr int wheelDown = 5;
constexpr int wheelUp = 4;

} // namespace

void SettingsWindowFixture::SetUp() {
    DesktopFixture::SetUp();
    static int count = 1;
    static char name[] = "settings-tests";
    static char* arguments[] = {name, nullptr};
    m_application = std::make_unique<QCoreApplication>(count, arguments);
    m_bus = std::make_unique<PrivateBus>();
    ASSERT_FALSE(m_bus->address().empty());
    m_accessibility = std::make_unique<AccessibilityBus>(m_bus->address());
    ASSERT_TRUE(m_accessibility->isRunning()) << "no accessibility bus; at-spi2-core is needed";
}

void SettingsWindowFixture::TearDown() {
    EXPECT_TRUE(!program.isRunning() || program.quit()) << program.log();
    m_accessibility.reset();
    m_bus.reset();
    m_application.reset();
}

void SettingsWindowFixture::startProgram() {
    home.writeSettings(settingsJson({dockJson(leftKey, {"/a", "/b"}), dockJson(rightKey, {"/a", "/b"})}));
    program.start();
    ASSERT_TRUE(eventually([&] { return docks().size() == 2; })) << program.log();
}

void SettingsWindowFixture::openSettings() {
    Program second(home);
    second.start();
    ASSERT_EQ(second.waitForEnd(), Program::End{0});
    ASSERT_TRUE(eventually([&] { return settingsWindow() != XCB_WINDOW_NONE && isActive(settingsWindow()); }))
        << program.log();
    ASSERT_TRUE(eventually([&] { return hasSection("General"); }))
        << "not announced on the accessibility bus";
}

xcb_window_t SettingsWindowFixture::settingsWindow() const {
    for (const auto window : display.numbers(display.root(), "_NET_CLIENT_LIST")) {
        const auto* title = xcb_get_property_reply(
            display.xcb(),
            xcb_get_property(display.xcb(), 0, window, display.atom("_NET_WM_NAME"), XCB_ATOM_ANY, 0, 64),
            nullptr);
        const std::unique_ptr<const void, void (*)(const void*)> owner(
            title, [](const void* memory) { std::free(const_cast<void*>(memory)); });
        if (title != nullptr && std::string(static_cast<const char*>(xcb_get_property_value(title)),
                                            static_cast<std::size_t>(xcb_get_property_value_length(title))) ==
                                    "Quillary Settings") {
            return window;
        }
    }
    return XCB_WINDOW_NONE;
}

AccessibleNode SettingsWindowFixture::form() const {
    const auto found = m_accessibility->desktop().find(
        [](const AccessibleNode& node) { return node.name() == "Quillary Settings"; });
    return found ? *found : m_accessibility->desktop();
}

bool SettingsWindowFixture::hasSection(const std::string& title) const {
    return form().find([&](const AccessibleNode& node) { return node.name() == title; }).has_value();
}

AccessibleNode SettingsWindowFixture::control(const std::string& section, const std::string& role,
                                              const std::string& name) {
    std::optional<AccessibleNode> found;
    eventually([&] {
        const auto group = form().find([&](const AccessibleNode& node) { return node.name() == section; });
        found = group ? group->find(role, name) : std::nullopt;
        return found.has_value();
    });
    if (!found) {
        throw std::runtime_error("no " + role + " " + name + " in " + section);
    }
    scrollTo(*found);
    return *found;
}

void SettingsWindowFixture::scrollTo(const AccessibleNode& node) {
    const QRect window = display.geometry(settingsWindow());
    const QRect seen = window.adjusted(0, 10, 0, -10);
    for (int turns = 0; turns < 60 && !seen.contains(node.extents()); ++turns) {
        const int before = node.extents().y();
        display.click(window.center(), node.extents().bottom() > seen.bottom() ? wheelDown : wheelUp);
        VirtualDisplay::waitUntil([&] { return node.extents().y() != before; }, 500);
    }
}

} // namespace quillary::test
