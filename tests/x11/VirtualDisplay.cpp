#include "tests/x11/VirtualDisplay.h"

#include "tests/surroundings/Surroundings.h"
#include "tests/x11/ChildProcess.h"
#include "tests/x11/KeyboardMap.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <xcb/randr.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace quillary::test {

namespace {

using Clock = std::chrono::steady_clock;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

// Every dummy output needs a line of its own; sixteen exist, three are enough here.
constexpr auto dummyConfig = R"(
Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "DontVTSwitch" "true"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1280x1024" "1024x768" "800x600"
    Virtual 4096 2048
  EndSubSection
EndSection
)";

std::string readLine(int fd, int milliseconds) {
    std::string line;
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (Clock::now() < end) {
        pollfd waiting{fd, POLLIN, 0};
        if (poll(&waiting, 1, 100) <= 0) {
            continue;
        }
        char character = 0;
        if (::read(fd, &character, 1) != 1 || character == '\n') {
            break;
        }
        line += character;
    }
    return line;
}

std::vector<std::string> serverCommand(VirtualDisplay::Server server, QSize size, int fd,
                                       const std::string& config) {
    const auto number = std::to_string(fd);
    if (server == VirtualDisplay::Server::xorgDummy) {
        return {"Xorg", "-displayfd", number,        "-config",  config,      "-noreset", "-nolisten",
                "tcp",  "-sharevts",  "-novtswitch", "-logfile", "/dev/null", "vt7"};
    }
    const auto screen = std::to_string(size.width()) + "x" + std::to_string(size.height()) + "x24";
    return {"Xvfb", "-displayfd", number, "-screen", "0", screen, "-noreset", "-nolisten", "tcp"};
}

} // namespace

VirtualDisplay::VirtualDisplay(Server server, QSize size) {
    if (server == Server::xorgDummy) {
        m_configFile = (std::filesystem::temp_directory_path() / "quillary-dummy-XXXXXX").string();
        const int file = mkstemp(m_configFile.data());
        if (file < 0) {
            m_configFile.clear();
            m_failure = "no temporary file";
            return;
        }
        ::close(file);
        std::ofstream(m_configFile) << dummyConfig;
    }
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) {
        m_failure = "no pipe";
        return;
    }
    m_serverProcess = ChildProcess::start(serverCommand(server, size, ends[1], m_configFile), ends[1]);
    ::close(ends[1]);
    const auto number = readLine(ends[0], deadline);
    ::close(ends[0]);
    if (number.empty()) {
        m_failure = "the X server did not start";
        return;
    }
    m_displayName = ":" + number;
    setenv("DISPLAY", m_displayName.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    m_connection = xcb_connect(m_displayName.c_str(), nullptr);
    if (xcb_connection_has_error(m_connection) != 0) {
        xcb_disconnect(m_connection);
        m_connection = nullptr;
        m_failure = "the X server takes no connections";
        return;
    }
    m_rootWindow = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    // The first use of the extension sets it up.
    const Reply<xcb_test_get_version_reply_t> test(
        xcb_test_get_version_reply(m_connection, xcb_test_get_version(m_connection, 2, 2), nullptr));
}

VirtualDisplay::~VirtualDisplay() {
    for (const auto& [process, command] : std::map(m_processes)) {
        ChildProcess::end(process);
    }
    if (m_connection != nullptr) {
        xcb_disconnect(m_connection);
    }
    ChildProcess::end(m_serverProcess);
    if (!m_configFile.empty()) {
        ::unlink(m_configFile.c_str());
    }
}

void VirtualDisplay::killServer() {
    kill(m_serverProcess, SIGKILL);
    [[maybe_unused]] const int status = ChildProcess::wait(m_serverProcess, deadline);
    m_serverProcess = 0;
}

void VirtualDisplay::plugTwoMonitors() {
    plugMonitor("LEFT", QRect(0, 0, 1280, 900), Rank::primary);
    plugMonitor("RIGHT", QRect(1280, 0, 1120, 800));
}

void VirtualDisplay::plugMonitor(const std::string& name, const QRect& geometry, Rank rank) {
    // A monitor cannot be changed in place. By the program: this libxcb's own request for it breaks the
    // connection.
    unplugMonitor(name);
    const auto number = [](int value) { return std::to_string(value); };
    const auto place = number(geometry.width()) + "/" + number(geometry.width() / 4) + "x" +
                       number(geometry.height()) + "/" + number(geometry.height() / 4) + "+" +
                       number(geometry.x()) + "+" + number(geometry.y());
    // The primary one takes the real output, so that the server's own monitor disappears.
    const bool primary = rank == Rank::primary;
    run({"xrandr", "--setmonitor", (primary ? "*" : "") + name, place, primary ? "screen" : "none"});
}

void VirtualDisplay::unplugMonitor(const std::string& name) {
    xcb_randr_delete_monitor(m_connection, m_rootWindow, atom(name));
    sync();
}

pid_t VirtualDisplay::start(const std::vector<std::string>& command) {
    const pid_t process = ChildProcess::start(command);
    if (process > 0) {
        m_processes.emplace(process, command.front());
    }
    return process;
}

void VirtualDisplay::stop(pid_t process) {
    if (m_processes.erase(process) > 0) {
        ChildProcess::end(process);
    }
}

int VirtualDisplay::run(const std::vector<std::string>& command) {
    const pid_t process = ChildProcess::start(command);
    if (process <= 0) {
        return -1;
    }
    const int status = ChildProcess::wait(process, deadline);
    if (status < 0) {
        ChildProcess::end(process);
    }
    return status;
}

bool VirtualDisplay::startWindowManager() {
    m_windowManager = start(Surroundings::withMachineData({"openbox", "--sm-disable"}));
    const bool announced = waitUntil([this] {
        const auto check = numbers(m_rootWindow, "_NET_SUPPORTING_WM_CHECK");
        return !check.empty() && numbers(check.front(), "_NET_SUPPORTING_WM_CHECK") == check;
    });
    return announced && waitUntil([this] { return managesNewWindows(); });
}

bool VirtualDisplay::managesNewWindows() {
    // A window manager that has just announced itself may still lose what asks to be shown: try with a
    // window.
    const auto probe = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, probe, m_rootWindow, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(m_connection, probe);
    sync();
    const auto listed = [&] {
        const auto list = numbers(m_rootWindow, "_NET_CLIENT_LIST");
        return std::find(list.begin(), list.end(), probe) != list.end();
    };
    const bool managed = waitUntil(listed, 300);
    xcb_destroy_window(m_connection, probe);
    sync();
    return managed && waitUntil([&] { return !listed(); });
}

void VirtualDisplay::stopWindowManager() {
    stop(std::exchange(m_windowManager, 0));
}

bool VirtualDisplay::startCompositor() {
    m_compositor = start({"picom", "--backend", "xrender", "--config", "/dev/null"});
    return waitUntil([this] {
        const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
            m_connection, xcb_get_selection_owner(m_connection, atom("_NET_WM_CM_S0")), nullptr));
        return owner && owner->owner != XCB_WINDOW_NONE;
    });
}

void VirtualDisplay::stopCompositor() {
    stop(std::exchange(m_compositor, 0));
}

void VirtualDisplay::fakeInput(std::uint8_t type, std::uint8_t detail, QPoint position) {
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_rootWindow,
                        static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()), 0);
    sync();
}

void VirtualDisplay::movePointer(QPoint position) {
    fakeInput(XCB_MOTION_NOTIFY, 0, position);
}

void VirtualDisplay::warpPointer(QPoint position) {
    xcb_warp_pointer(m_connection, XCB_WINDOW_NONE, m_rootWindow, 0, 0, 0, 0,
                     static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()));
    sync();
}

void VirtualDisplay::pressButton(int button) {
    fakeInput(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button), {});
}

void VirtualDisplay::releaseButton(int button) {
    fakeInput(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button), {});
}

void VirtualDisplay::click(QPoint position, int button) {
    movePointer(position);
    pressButton(button);
    releaseButton(button);
}

void VirtualDisplay::typeKey(xcb_keysym_t key, xcb_keysym_t held) {
    const auto code = KeyboardMap::keycode(m_connection, key);
    const auto heldCode = KeyboardMap::keycode(m_connection, held);
    if (heldCode != 0) {
        fakeInput(XCB_KEY_PRESS, heldCode, {});
    }
    fakeInput(XCB_KEY_PRESS, code, {});
    fakeInput(XCB_KEY_RELEASE, code, {});
    if (heldCode != 0) {
        fakeInput(XCB_KEY_RELEASE, heldCode, {});
    }
}

QImage VirtualDisplay::screenshot() const {
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_rootWindow), nullptr));
    if (!size) {
        return {};
    }
    const Reply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(m_connection,
                            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_rootWindow, 0, 0,
                                          size->width, size->height, 0xFFFFFFFF),
                            nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < size->width * size->height * 4) {
        return {};
    }
    // A copy: the bytes belong to the reply.
    return QImage(xcb_get_image_data(reply.get()), size->width, size->height, QImage::Format_RGB32).copy();
}

QRgb VirtualDisplay::pixel(QPoint position) const {
    const Reply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(m_connection,
                            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_rootWindow,
                                          static_cast<std::int16_t>(position.x()),
                                          static_cast<std::int16_t>(position.y()), 1, 1, 0xFFFFFFFF),
                            nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < 4) {
        return 0;
    }
    const auto* bytes = xcb_get_image_data(reply.get());
    return qRgb(bytes[2], bytes[1], bytes[0]);
}

xcb_atom_t VirtualDisplay::atom(const std::string& name) const {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> VirtualDisplay::numbers(xcb_window_t window, const std::string& property) const {
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096),
        nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {items, items + xcb_get_property_value_length(reply.get()) / 4};
}

std::vector<std::string> VirtualDisplay::atomNames(xcb_window_t window, const std::string& property) const {
    std::vector<std::string> names;
    for (const auto item : numbers(window, property)) {
        const Reply<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, item), nullptr));
        if (reply) {
            names.emplace_back(xcb_get_atom_name_name(reply.get()),
                               static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
        }
    }
    return names;
}

QRect VirtualDisplay::geometry(xcb_window_t window) const {
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_rootWindow, 0, 0), nullptr));
    return size && place ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

bool VirtualDisplay::isViewable(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t VirtualDisplay::focusedWindow() const {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void VirtualDisplay::sync() const {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

bool VirtualDisplay::waitUntil(const std::function<bool()>& condition, int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (true) {
        if (QCoreApplication::instance() != nullptr) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        if (condition()) {
            return true;
        }
        if (Clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void VirtualDisplay::runFor(int milliseconds) {
    waitUntil([] { return false; }, milliseconds);
}

} // namespace quillary::test
