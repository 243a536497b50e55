#include "platform/x11/X11Monitor.h"

#include "platform/x11/X11Text.h"

#include <xcb/randr.h>

#include <algorithm>

namespace quillary {

namespace {

// An EDID has a block of 128 bytes and up to 255 extensions. Only the first block is read.
constexpr std::uint32_t edidLongs = 128 / 4;

std::string atomName(X11Connection& connection, xcb_atom_t atom) {
    const auto reply = connection.reply(xcb_get_atom_name_reply, xcb_get_atom_name(connection.xcb(), atom));
    if (!reply) {
        return {};
    }
    const auto length = static_cast<std::size_t>(std::max(0, xcb_get_atom_name_name_length(reply.get())));
    return X11Text::clean({xcb_get_atom_name_name(reply.get()), length});
}

std::optional<Edid> edidOf(X11Connection& connection, xcb_randr_output_t output) {
    const auto reply =
        connection.reply(xcb_randr_get_output_property_reply,
                         xcb_randr_get_output_property(connection.xcb(), output, connection.atoms().edid,
                                                       XCB_ATOM_INTEGER, 0, edidLongs, 0, 0));
    if (!reply || reply->format != 8) {
        return std::nullopt;
    }
    const auto length =
        static_cast<std::size_t>(std::max(0, xcb_randr_get_output_property_data_length(reply.get())));
    return Edid::parse({xcb_randr_get_output_property_data(reply.get()), length});
}

X11Monitor readOne(X11Connection& connection, const xcb_randr_monitor_info_t* info) {
    X11Monitor monitor;
    monitor.name = atomName(connection, info->name);
    monitor.geometry = QRect(info->x, info->y, info->width, info->height);
    monitor.primary = info->primary != 0;
    const auto* outputs = xcb_randr_monitor_info_outputs(info);
    const int count = xcb_randr_monitor_info_outputs_length(info);
    for (int i = 0; i < count && !monitor.edid; ++i) {
        monitor.edid = edidOf(connection, outputs[i]);
    }
    return monitor;
}

} // namespace

std::vector<X11Monitor> X11Monitor::readAll(X11Connection& connection) {
    std::vector<X11Monitor> monitors;
    const auto reply = connection.reply(xcb_randr_get_monitors_reply,
                                        xcb_randr_get_monitors(connection.xcb(), connection.root(), 1));
    if (!reply) {
        return monitors;
    }
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it)) {
        auto monitor = readOne(connection, it.data);
        const bool mirror =
            std::ranges::find(monitors, monitor.geometry, &X11Monitor::geometry) != monitors.end();
        if (!monitor.geometry.isEmpty() && !mirror) {
            monitors.push_back(std::move(monitor));
        }
    }
    // Not std::ranges::stable_partition: clang-tidy 14 cannot parse the subrange that it returns.
    std::stable_partition(monitors.begin(), monitors.end(),
                          [](const X11Monitor& monitor) { return monitor.primary; });
    return monitors;
}

} // namespace quillary
