#include "platform/linux/memory/ControlGroupPlace.h"

#include <algorithm>
#include <array>

namespace quillary {

namespace {

constexpr std::string_view scopeSuffix = ".scope";
constexpr std::array<std::string_view, 6> containerScopes = {"buildah-", "cri-containerd-", "crio-",
                                                             "docker-",  "libpod-",         "machine-"};
constexpr std::array<std::string_view, 3> containerParents = {"docker", "libpod_parent", "lxc"};

bool isContainer(std::string_view part, std::string_view parent) {
    const bool isScope =
        part.ends_with(scopeSuffix) && std::ranges::any_of(containerScopes, [part](std::string_view start) {
            return part.starts_with(start);
        });
    return isScope || part.starts_with("lxc.payload.") ||
           std::ranges::find(containerParents, parent) != containerParents.end();
}

bool isService(std::string_view part) {
    return part.ends_with(".service") && !part.starts_with("user@");
}

bool isSession(std::string_view part) {
    return part.starts_with("session-") && part.ends_with(scopeSuffix);
}

} // namespace

ControlGroupPlace controlGroupPlace(std::string_view group) {
    ControlGroupPlace place;
    std::string_view parent;
    for (std::size_t begin = 0; begin < group.size();) {
        const auto end = std::min(group.find('/', begin), group.size());
        const auto part = group.substr(begin, end - begin);
        const std::string path(group.substr(0, end));
        if (isContainer(part, parent)) {
            place = {.container = path, .service = {}, .session = {}};
        } else if (isService(part)) {
            place.service = path;
        } else if (isSession(part)) {
            place.session = path;
        }
        parent = part;
        begin = end + 1;
    }
    return place;
}

} // namespace quillary
