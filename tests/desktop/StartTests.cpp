#include "tests/desktop/DesktopFixture.h"
#include "tests/x11/TestWindow.h"

#include <cstdlib>
#include <sstream>

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
// Of the one item on LEFT: a panel of 92 × 125 at 594, 775.
const QRect iconInPlace(616, 833, 48, 48);
const QPoint icon(640, 857);

/// What the desktop is sent about programs that start, and the X server's clock.
class Listener {
public:
    explicit Listener(const VirtualDisplay& host)
        : m_display(host),
          m_connection(xcb_connect(host.name().c_str(), nullptr)),
          m_window(xcb_generate_id(m_connection)) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection, 0, m_window, m_display.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
        xcb_change_window_attributes(m_connection, m_display.root(), XCB_CW_EVENT_MASK, &mask);
        time();
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { xcb_disconnect(m_connection); }

    /// Milliseconds.
    std::uint32_t time() {
        xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                            8, 0, nullptr);
        xcb_flush(m_connection);
        while (auto* event = xcb_wait_for_event(m_connection)) {
            const bool told = (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY &&
                              reinterpret_cast<xcb_property_notify_event_t*>(event)->window == m_window;
            const auto moment = reinterpret_cast<xcb_property_notify_event_t*>(event)->time;
            take(event);
            if (told) {
                return moment;
            }
        }
        return 0;
    }

    /// The messages, as far as they are complete.
    std::vector<std::string> messages() {
        while (auto* event = xcb_poll_for_event(m_connection)) {
            take(event);
        }
        std::vector<std::string> result;
        std::istringstream stream(m_bytes);
        for (std::string line; std::getline(stream, line, '\0');) {
            if (!stream.eof() && !line.empty()) {
                result.push_back(line);
            }
        }
        return result;
    }

private:
    void take(xcb_generic_event_t* event) {
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE) {
            const auto& message = *reinterpret_cast<xcb_client_message_event_t*>(event);
            if (message.type == m_display.atom("_NET_STARTUP_INFO_BEGIN") ||
                message.type == m_display.atom("_NET_STARTUP_INFO")) {
                m_bytes.append(std::begin(message.data.data8), std::end(message.data.data8));
            }
        }
        std::free(event);
    }

    const VirtualDisplay& m_display;
    xcb_connection_t* m_connection;
    xcb_window_t m_window;
    std::string m_bytes;
};

std::string valueOf(const std::string& key, const std::string& message) {
    const auto begin = message.find(" " + key + "=\"");
    if (begin == std::string::npos) {
        return {};
    }
    const auto value = begin + key.size() + 3;
    return message.substr(value, message.find('"', value) - value);
}

class StartTest : public DesktopFixture {
protected:
    void startWith(const std::string& item) {
        const std::string options = R"("magnification":"off")";
        home.writeSettings(
            settingsJson({dockJson(leftKey, {item}, options), dockJson(rightKey, {item}, options)}));
        startWithDocks(2);
        ASSERT_TRUE(eventually([&] { return colourBox(red, QRect(0, 0, 1280, 900)) == iconInPlace; }));
    }
    /// How many names the X server was asked to intern that begin so.
    [[nodiscard]] std::size_t atomsWithPrefix(const std::string& prefix) const {
        std::size_t count = 0;
        for (xcb_atom_t atom = 1;; ++atom) {
            auto* reply =
                xcb_get_atom_name_reply(display.xcb(), xcb_get_atom_name(display.xcb(), atom), nullptr);
            if (reply == nullptr) {
                return count;
            }
            const std::string_view name(xcb_get_atom_name_name(reply),
                                        static_cast<std::size_t>(xcb_get_atom_name_name_length(reply)));
            count += name.starts_with(prefix) ? 1U : 0U;
            std::free(reply);
        }
    }
    /// A variable of the process that owns the window.
    [[nodiscard]] std::string variable(xcb_window_t window, const std::string& name) const {
        const auto process = display.numbers(window, "_NET_WM_PID");
        const auto environment =
            process.empty() ? "" : Home::read("/proc/" + std::to_string(process.front()) + "/environ");
        std::istringstream stream(environment);
        for (std::string line; std::getline(stream, line, '\0');) {
            if (line.starts_with(name + "=")) {
                return line.substr(name.size() + 1);
            }
        }
        return {};
    }
};

} // namespace

TEST_F(StartTest, theDesktopIsToldOfTheStartAndTheProgramGetsItsId) {
    startWith(home.install("red", red, "StartupNotify=true\n"));
    Listener listener(display);
    const auto before = listener.time();
    display.click(icon);
    VirtualDisplay::runFor(1);
    const auto after = listener.time();
    ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; })) << program.log();

    // The second is the window manager's, which knows the window by its class.
    ASSERT_TRUE(eventually([&] { return listener.messages().size() == 2; }))
        << testing::PrintToString(listener.messages());
    const auto messages = listener.messages();
    const auto& message = messages.front();
    EXPECT_TRUE(message.starts_with("new: ")) << message;
    EXPECT_EQ(valueOf("NAME", message), "red");
    EXPECT_EQ(valueOf("SCREEN", message), "0");
    EXPECT_EQ(valueOf("WMCLASS", message), "red");
    EXPECT_EQ(valueOf("BIN", message), QUILLARY_TEST_APPLICATION);
    const auto id = valueOf("ID", message);
    EXPECT_EQ(messages[1], "remove: ID=" + id);
    EXPECT_EQ(variable(windowOf("red"), "DESKTOP_STARTUP_ID"), id);
    EXPECT_EQ(variable(windowOf("red"), "XDG_ACTIVATION_TOKEN"), id);

    // The moment of the click, by the X server's clock.
    const auto time = valueOf("TIMESTAMP", message);
    EXPECT_TRUE(id.ends_with("_TIME" + time)) << id;
    const auto moment = std::strtoul(time.c_str(), nullptr, 10);
    EXPECT_GE(moment, before);
    EXPECT_LE(moment, after);
}

TEST_F(StartTest, withoutAServerTheProgramEndsWithOneLine) {
    program.start({"DISPLAY=:4321"});
    EXPECT_EQ(program.waitForEnd(), (Program::End{1}));
    EXPECT_EQ(program.log(), "Quillary: no X server can be reached.\n");
}

// No server can be reached, so what is answered is answered before anything else.
TEST_F(StartTest, helpAndVersionGoToStandardOutput) {
    for (const auto& [option, beginning] :
         {std::pair("--help", "Usage: quillary\n"), std::pair("--version", "Quillary 0.")}) {
        const auto written = home.path() / "written";
        const auto status = display.run({"sh", "-c", R"(DISPLAY=:4321 "$0" "$1" >"$2" 2>"$2.error")",
                                         QUILLARY_PROGRAM, option, written.string()});
        EXPECT_EQ(status, 0) << option;
        EXPECT_TRUE(Home::read(written).starts_with(beginning)) << Home::read(written);
        EXPECT_TRUE(Home::read(written).ends_with("\n"));
        EXPECT_EQ(Home::read(written.string() + ".error"), "") << option;
    }
}

TEST_F(StartTest, otherArgumentsAreOneLineAndStatus2) {
    const auto sheet = home.path() / "red.qss";
    Home::write(sheet, "* { background: red }");
    const std::vector<std::vector<std::string>> commands = {{"-platform", "offscreen"},
                                                            {"-stylesheet", sheet.string()},
                                                            {"--unknown"},
                                                            {"-h"},
                                                            {""},
                                                            {"a\nb\xff"},
                                                            {"file", "--help"}};
    for (const auto& arguments : commands) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        std::filesystem::remove(home.path() / "program.log");
        program.start({}, arguments);
        EXPECT_EQ(program.waitForEnd(), (Program::End{2}));
        EXPECT_TRUE(program.log().starts_with("Quillary: ")) << program.log();
        EXPECT_EQ(program.log().find('\n'), program.log().size() - 1) << program.log();
    }
}

TEST_F(StartTest, aSessionWithoutABusGetsNone) {
    const auto launched = home.path() / "launched";
    const auto launcher = home.path() / "programs/dbus-launch";
    Home::write(launcher, "#!/bin/sh\necho \"$@\" >>'" + launched.string() + "'\nexit 1\n");
    std::filesystem::permissions(launcher, std::filesystem::perms::owner_all);
    const auto path = "PATH=" + launcher.parent_path().string() + ":" + std::getenv("PATH");
    home.writeSettings(
        settingsJson({dockJson(leftKey, {home.install("red", red)}, R"("magnification":"off")")}));
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    for (const std::vector<std::string>& environment :
         {std::vector{path}, std::vector{path, std::string("DBUS_SESSION_BUS_ADDRESS=autolaunch:")}}) {
        program.start(environment);
        ASSERT_TRUE(eventually([&] { return colourBox(red, QRect(0, 0, 1280, 900)) == iconInPlace; }))
            << program.log();
        display.click(icon);
        ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; })) << program.log();
        EXPECT_EQ(variable(windowOf("red"), "DBUS_SESSION_BUS_ADDRESS"), "") << "not for other programs";
        EXPECT_TRUE(program.quit());
        EXPECT_EQ(Home::read(launched), "");
        // The one in /usr/bin, which libdbus prefers to PATH, would have made an atom for its bus.
        EXPECT_EQ(atomsWithPrefix("_DBUS_SESSION_BUS_"), 0U);
        display.run({"xdotool", "windowkill", std::to_string(windowOf("red"))});
        ASSERT_TRUE(eventually([&] { return windowOf("red") == XCB_WINDOW_NONE; }));
    }
}

TEST_F(StartTest, aStartThatFailsIsTakenBackAndIsOneLineOfTheLog) {
    startWith(home.install("red", red, "StartupNotify=true\nPath=/nowhere/at/all\n"));
    Listener listener(display);
    display.click(icon);
    ASSERT_TRUE(eventually([&] { return listener.messages().size() == 2; })) << program.log();
    const auto messages = listener.messages();
    EXPECT_EQ(messages[1], "remove: ID=\"" + valueOf("ID", messages[0]) + "\"");
    ASSERT_TRUE(eventually([&] { return !program.log().empty(); }));
    EXPECT_TRUE(program.log().starts_with("Quillary: could not launch " + home.path().string()))
        << program.log();
    EXPECT_EQ(program.log().find('\n'), program.log().size() - 1) << program.log();
}

TEST_F(StartTest, aClickBringsBackAMinimisedWindowFromAnotherDesktop) {
    startWith(home.install("red", red));
    display.start({QUILLARY_TEST_APPLICATION, "red", "100", "100", "300", "200"});
    ASSERT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; }));
    const auto window = windowOf("red");
    const auto send = [&](xcb_window_t target, const char* type, std::uint32_t value) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = target;
        message.type = display.atom(type);
        message.data.data32[0] = value;
        xcb_send_event(display.xcb(), 0, display.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(display.xcb());
    };
    constexpr std::uint32_t iconic = 3;
    send(window, "WM_CHANGE_STATE", iconic);
    ASSERT_TRUE(eventually([&] { return !display.isViewable(window); }));
    const auto desktop = [&] { return display.numbers(display.root(), "_NET_CURRENT_DESKTOP"); };
    send(display.root(), "_NET_CURRENT_DESKTOP", 2);
    ASSERT_TRUE(eventually([&] { return desktop() == std::vector<std::uint32_t>{2}; }));

    display.click(icon);
    EXPECT_TRUE(eventually([&] { return display.isViewable(window) && isActive(window); }));
    EXPECT_EQ(desktop(), std::vector<std::uint32_t>{0});
    EXPECT_EQ(windowOf("red"), window);
}

} // namespace quillary::test
