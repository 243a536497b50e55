#include "platform/x11/X11WindowReader.h"

#include "platform/x11/X11Property.h"
#include "platform/x11/X11Text.h"
#include "platform/x11/X11WindowKind.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include <unistd.h>

namespace quillary {

namespace {

constexpr std::uint32_t maxTextBytes = X11Text::maxBytes;
constexpr std::uint32_t maxAtomBytes = 64 * 4;

std::string ownHostName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

// WM_CLASS (ICCCM 4.1.2.5) consists of two NUL-terminated strings: instance, then class.
void readClass(const std::string& bytes, WindowInfo& info) {
    const auto end = std::min(bytes.find('\0'), bytes.size());
    info.instance = X11Text::clean(bytes.substr(0, end));
    info.windowClass = end < bytes.size() ? X11Text::clean(bytes.substr(end + 1)) : std::string();
}

} // namespace

struct X11WindowReader::Request {
    xcb_window_t window;
    xcb_get_property_cookie_t windowClass;
    xcb_get_property_cookie_t pid;
    xcb_get_property_cookie_t machine;
    xcb_get_property_cookie_t gtkId;
    xcb_get_property_cookie_t kdeFile;
    xcb_get_property_cookie_t transientFor;
    xcb_get_property_cookie_t types;
    xcb_get_property_cookie_t states;
};

X11WindowReader::X11WindowReader(X11Connection& connection)
    : m_connection(connection), m_hostName(ownHostName()) {}

X11WindowReader::Request X11WindowReader::request(xcb_window_t window) const {
    const auto& atoms = m_connection.atoms();
    const auto ask = [&](xcb_atom_t property, std::uint32_t bytes) {
        return requestProperty(m_connection, window, property, bytes);
    };
    return {.window = window,
            .windowClass = ask(XCB_ATOM_WM_CLASS, 2 * maxTextBytes),
            .pid = ask(atoms.netWmPid, 4),
            .machine = ask(XCB_ATOM_WM_CLIENT_MACHINE, maxTextBytes),
            .gtkId = ask(atoms.gtkApplicationId, maxTextBytes),
            .kdeFile = ask(atoms.kdeDesktopFile, maxTextBytes),
            .transientFor = ask(XCB_ATOM_WM_TRANSIENT_FOR, 4),
            .types = ask(atoms.netWmWindowType, maxAtomBytes),
            .states = ask(atoms.netWmState, maxAtomBytes)};
}

std::optional<WindowInfo> X11WindowReader::finish(const Request& request) const {
    const auto answer = [&](xcb_get_property_cookie_t cookie) { return readProperty(m_connection, cookie); };
    WindowInfo info;
    info.id = request.window;
    readClass(answer(request.windowClass).bytes, info);
    const auto pid = answer(request.pid).firstNumber();
    // A process id is meaningful only on the machine that the client runs on.
    const auto machine = X11Text::clean(answer(request.machine).bytes);
    if (!machine.empty() && machine == m_hostName && pid <= std::numeric_limits<std::int32_t>::max()) {
        info.pid = pid;
    }
    const auto gtkId = X11Text::clean(answer(request.gtkId).bytes);
    const auto kdeFile = X11Text::clean(answer(request.kdeFile).bytes);
    info.applicationId = gtkId.empty() ? kdeFile : gtkId;
    info.transientFor = answer(request.transientFor).firstNumber();
    const auto types = answer(request.types);
    const auto states = answer(request.states);
    info.normal = X11WindowKind::isNormal(m_connection.atoms(), types.numbers, states.numbers);
    // If the window existed for the last request, it existed for all of them.
    return states.windowExists ? std::optional(info) : std::nullopt;
}

std::unordered_map<xcb_window_t, WindowInfo>
X11WindowReader::read(const std::vector<xcb_window_t>& windows) const {
    std::vector<Request> requests;
    requests.reserve(windows.size());
    for (const auto window : windows) {
        requests.push_back(request(window));
    }
    std::unordered_map<xcb_window_t, WindowInfo> result;
    for (const auto& made : requests) {
        if (auto info = finish(made)) {
            result.emplace(made.window, std::move(*info));
        }
    }
    return result;
}

bool X11WindowReader::concerns(xcb_atom_t property) const {
    const auto& atoms = m_connection.atoms();
    const std::array<xcb_atom_t, 8> read = {XCB_ATOM_WM_CLASS,          atoms.netWmPid,
                                            XCB_ATOM_WM_CLIENT_MACHINE, atoms.gtkApplicationId,
                                            atoms.kdeDesktopFile,       XCB_ATOM_WM_TRANSIENT_FOR,
                                            atoms.netWmWindowType,      atoms.netWmState};
    return std::ranges::find(read, property) != read.end();
}

} // namespace quillary
