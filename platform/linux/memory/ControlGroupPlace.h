#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// The container, the service and the session that a control group lies in, each as the path of its own
/// group; empty when it lies in none. Of several nested ones the innermost counts.
struct ControlGroupPlace {
    /// Named by the container's manager: `libpod-<id>.scope` (Podman), `docker-<id>.scope`,
    /// `machine-<name>.scope` (systemd-machined), `crio-<id>.scope` and `cri-containerd-<id>.scope`
    /// (Kubernetes), `buildah-<id>.scope`, `lxc.payload.<name>`, and without systemd `docker/<id>`,
    /// `libpod_parent/<id>` and `lxc/<name>`.
    std::string container;
    /// Of the system or of a user (systemd.service(5)). `user@<uid>.service` is none, since the whole desktop
    /// may run below it.
    std::string service;
    /// `session-<id>.scope` (systemd-logind, org.freedesktop.login1(5)).
    std::string session;

    bool operator==(const ControlGroupPlace&) const = default;
};

/// `group` is the path of a control group. What lies outside the innermost container does not count.
[[nodiscard]] ControlGroupPlace controlGroupPlace(std::string_view group);

} // namespace quillary
