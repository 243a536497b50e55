#include "tests/desktop/DesktopFixture.h"

#include <xcb/shape.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>

namespace quillary::test {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

} // namespace

void DesktopFixture::SetUp() {
    ASSERT_TRUE(display.isRunning()) << display.error();
    if (server == VirtualDisplay::Server::xvfb) {
        display.plugTwoMonitors();
    }
    display.movePointer(QPoint(700, 300));
    paintWallpaper(Qt::blue);
    ASSERT_TRUE(display.startWindowManager());
}

void DesktopFixture::startWithDocks(std::size_t count) {
    program.start();
    ASSERT_TRUE(eventually([&] { return docks().size() == count; })) << program.log();
}

void DesktopFixture::collect(xcb_window_t parent, std::vector<xcb_window_t>& found) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display.xcb(), xcb_query_tree(display.xcb(), parent), nullptr));
    if (!tree) {
        return;
    }
    const auto* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        found.push_back(children[i]);
        collect(children[i], found);
    }
}

bool DesktopFixture::belongsToProgram(xcb_window_t window) const {
    const auto owner = display.numbers(window, "_NET_WM_PID");
    return owner.size() == 1 && owner.front() == static_cast<std::uint32_t>(program.process());
}

std::vector<xcb_window_t> DesktopFixture::docks() const {
    std::vector<xcb_window_t> found;
    collect(display.root(), found);
    std::erase_if(found, [this](xcb_window_t window) {
        return !belongsToProgram(window) || !display.isViewable(window) ||
               display.atomNames(window, "_NET_WM_WINDOW_TYPE") !=
                   std::vector<std::string>{"_NET_WM_WINDOW_TYPE_DOCK"};
    });
    // Read once each: a window that moves or goes while it is sorted would have no order.
    std::map<xcb_window_t, int> places;
    for (const auto window : found) {
        places.emplace(window, display.geometry(window).x());
    }
    std::ranges::sort(found, {}, [&places](xcb_window_t window) { return places.at(window); });
    return found;
}

bool DesktopFixture::isPopup(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        display.xcb(), xcb_get_window_attributes(display.xcb(), window), nullptr));
    return reply && reply->override_redirect != 0 && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::vector<xcb_window_t> DesktopFixture::popups() const {
    std::vector<xcb_window_t> found;
    collect(display.root(), found);
    std::erase_if(found,
                  [this](xcb_window_t window) { return !belongsToProgram(window) || !isPopup(window); });
    return found;
}

bool DesktopFixture::popupsTakeKeys(std::size_t count) const {
    return eventually([&] {
        const Reply<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(display.xcb(),
                                    xcb_grab_keyboard(display.xcb(), 0, display.root(), XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        xcb_ungrab_keyboard(display.xcb(), XCB_CURRENT_TIME);
        xcb_flush(display.xcb());
        return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED && popups().size() == count;
    });
}

std::vector<QRect> DesktopFixture::places() const {
    std::vector<QRect> result;
    for (const auto window : docks()) {
        result.push_back(display.geometry(window));
    }
    return result;
}

testing::AssertionResult DesktopFixture::standAt(const std::vector<QRect>& expected) const {
    if (eventually([&] { return places() == expected; })) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "the docks stand at " << testing::PrintToString(places())
                                       << "\ninstead of " << testing::PrintToString(expected) << "\n"
                                       << program.log();
}

xcb_window_t DesktopFixture::dockIn(const QRect& monitor) const {
    std::vector<xcb_window_t> found = docks();
    std::erase_if(found,
                  [&](xcb_window_t window) { return !monitor.contains(display.geometry(window).center()); });
    return found.size() == 1 ? found.front() : xcb_window_t{XCB_WINDOW_NONE};
}

QRegion DesktopFixture::inputShape(xcb_window_t window) const {
    const Reply<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        display.xcb(), xcb_shape_get_rectangles(display.xcb(), window, XCB_SHAPE_SK_INPUT), nullptr));
    QRegion region;
    if (reply) {
        const auto* rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
        for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i) {
            region += QRect(rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height);
        }
    }
    return region;
}

std::size_t DesktopFixture::windowCount() const {
    std::vector<xcb_window_t> found;
    collect(display.root(), found);
    return found.size();
}

xcb_window_t DesktopFixture::windowOf(const std::string& id) const {
    const std::string wanted = id + '\0' + id + '\0';
    for (const auto window : display.numbers(display.root(), "_NET_CLIENT_LIST")) {
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            display.xcb(),
            xcb_get_property(display.xcb(), 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256), nullptr));
        if (reply &&
            wanted == std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                  static_cast<std::size_t>(xcb_get_property_value_length(reply.get())))) {
            return window;
        }
    }
    return XCB_WINDOW_NONE;
}

bool DesktopFixture::isActive(xcb_window_t window) const {
    return display.numbers(display.root(), "_NET_ACTIVE_WINDOW") == std::vector<std::uint32_t>{window};
}

bool DesktopFixture::isOnTop(xcb_window_t upper) const {
    auto stack = display.numbers(display.root(), "_NET_CLIENT_LIST_STACKING");
    std::erase_if(stack, [this](xcb_window_t window) { return belongsToProgram(window); });
    return !stack.empty() && stack.back() == upper;
}

void DesktopFixture::paintWallpaper(QColor colour) {
    auto* xcb = display.xcb();
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
    const auto pixmap = xcb_generate_id(xcb);
    const auto context = xcb_generate_id(xcb);
    const std::uint32_t pixel = colour.rgb() & 0xFFFFFFU;
    xcb_create_pixmap(xcb, screen->root_depth, pixmap, screen->root, 16, 16);
    xcb_create_gc(xcb, context, pixmap, XCB_GC_FOREGROUND, &pixel);
    const xcb_rectangle_t whole{0, 0, 16, 16};
    xcb_poly_fill_rectangle(xcb, pixmap, context, 1, &whole);
    xcb_free_gc(xcb, context);
    xcb_change_window_attributes(xcb, screen->root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(xcb, 0, screen->root, 0, 0, 0, 0);
    for (const char* name : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"}) {
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, screen->root, display.atom(name), XCB_ATOM_PIXMAP, 32,
                            1, &pixmap);
    }
    xcb_flush(xcb);
}

QRect DesktopFixture::colourBox(QColor colour, const QRect& area) const {
    const QImage picture = display.screenshot();
    const QRgb wanted = colour.rgb() | 0xFF000000U;
    QRect box;
    const QRect inside = area & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if ((picture.pixel(x, y) | 0xFF000000U) == wanted) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

} // namespace quillary::test
