#include "tests/desktop/ClientResources.h"

#include <xcb/res.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace quillary::test {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

std::string nameOf(xcb_connection_t* connection, xcb_atom_t atom) {
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    return reply ? std::string(xcb_get_atom_name_name(reply.get()),
                               static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())))
                 : std::string();
}

std::vector<std::uint32_t> connectionsOf(xcb_connection_t* connection, pid_t process) {
    std::free(xcb_res_query_version_reply(connection, xcb_res_query_version(connection, 1, 2), nullptr));
    const xcb_res_client_id_spec_t all{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection, xcb_res_query_client_ids(connection, 1, &all), nullptr));
    std::vector<std::uint32_t> result;
    if (!reply) {
        return result;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if (xcb_res_client_id_value_value_length(ids.data) == 1 &&
            *xcb_res_client_id_value_value(ids.data) == static_cast<std::uint32_t>(process)) {
            result.push_back(ids.data->spec.client);
        }
    }
    return result;
}

} // namespace

std::map<std::string, unsigned> clientResources(const VirtualDisplay& display, pid_t process) {
    std::map<std::string, unsigned> result;
    for (const auto client : connectionsOf(display.xcb(), process)) {
        const Reply<xcb_res_query_client_resources_reply_t> reply(xcb_res_query_client_resources_reply(
            display.xcb(), xcb_res_query_client_resources(display.xcb(), client), nullptr));
        if (!reply) {
            return {};
        }
        const auto* types = xcb_res_query_client_resources_types(reply.get());
        for (int i = 0; i < xcb_res_query_client_resources_types_length(reply.get()); ++i) {
            result[nameOf(display.xcb(), types[i].resource_type)] += types[i].count;
        }
    }
    return result;
}

} // namespace quillary::test
