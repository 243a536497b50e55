#pragma once

#include "platform/FileIcons.h"
#include "platform/Workspace.h"

namespace quillary {

/// A system that knows four coloured squares and nothing else, for docks that are shown as examples.
class MiniatureWorkspace final : public Workspace, public FileIcons {
public:
    /// `share`: how much of an icon's side its square takes; the rest is clear around it.
    explicit MiniatureWorkspace(double share) : squareShare(share) {}

    /// The squares' paths: blue, orange, green and pink.
    [[nodiscard]] static std::vector<std::string> items();

    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override { return {}; }
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override { return {}; }
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override { return {}; }
    [[nodiscard]] std::optional<std::string> ownBundleIdentifier() const override { return {}; }
    [[nodiscard]] QIcon icon(const std::string& path) const override;
    void openApplication(const std::string& /*path*/) override {}
    void open(const std::string& /*path*/) override {}
    void openWith(const std::vector<std::string>& /*paths*/, const std::string& /*application*/) override {}
    void reveal(const std::string& /*path*/) override {}
    void terminate(const RunningApplication& /*application*/) override {}

private:
    double squareShare;
};

} // namespace quillary
