#pragma once

#include "platform/FileFacts.h"
#include "platform/FileIcons.h"
#include "platform/Workspace.h"

#include <memory>

namespace quillary {

/// Running applications, opening and revealing by NSWorkspace; names and existence by NSFileManager. A path
/// is an application when it ends in ".app".
class MacWorkspace final : public Workspace, public FileFacts, public FileIcons {
    Q_OBJECT

public:
    MacWorkspace();
    ~MacWorkspace() override;

    /// Every running application that the system lists, background ones too, in its order.
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    /// Always absent: a full-screen window has its own space, from which the system excludes docks.
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override;
    [[nodiscard]] std::optional<std::string> ownBundleIdentifier() const override;

    [[nodiscard]] bool isApplication(const std::string& path) const override;
    [[nodiscard]] bool exists(const std::string& path) const override;
    [[nodiscard]] std::string displayName(const std::string& path) const override;
    [[nodiscard]] QIcon icon(const std::string& path) const override;

    void openApplication(const std::string& path) override;
    void open(const std::string& path) override;
    void openWith(const std::vector<std::string>& paths, const std::string& application) override;
    void reveal(const std::string& path) override;
    void terminate(const RunningApplication& application) override;

private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary
