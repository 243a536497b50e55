// All that a dock sees of an application: a window with a class. Arguments: class [x y width height].

#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include <unistd.h>

namespace {

xcb_atom_t atom(xcb_connection_t* xcb, const char* name) {
    auto* reply = xcb_intern_atom_reply(
        xcb, xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr);
    const auto value = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return value;
}

int argument(int argc, char* argv[], int index, int otherwise) {
    return argc > index ? static_cast<int>(std::strtol(argv[index], nullptr, 10)) : otherwise;
}

} // namespace

int main(int argc, char* argv[]) {
    auto* xcb = xcb_connect(nullptr, nullptr);
    if (argc < 2 || xcb_connection_has_error(xcb) != 0) {
        return 1;
    }
    const std::string id = argv[1];
    const int x = argument(argc, argv, 2, 100);
    const int y = argument(argc, argv, 3, 100);
    const int width = argument(argc, argv, 4, 300);
    const int height = argument(argc, argv, 5, 200);
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    const auto window = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, screen->root, static_cast<std::int16_t>(x),
                      static_cast<std::int16_t>(y), static_cast<std::uint16_t>(width),
                      static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &screen->white_pixel);
    const std::string windowClass = id + '\0' + id + '\0';
    xcb_icccm_set_wm_class(xcb, window, static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_position(&hints, 1, x, y);
    xcb_icccm_set_wm_normal_hints(xcb, window, &hints);
    const auto pid = static_cast<std::uint32_t>(getpid());
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, atom(xcb, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 32,
                        1, &pid);
    xcb_map_window(xcb, window);
    xcb_flush(xcb);
    // It ends with its server.
    while (auto* event = xcb_wait_for_event(xcb)) {
        std::free(event);
    }
    xcb_disconnect(xcb);
    return 0;
}
