#pragma once

#include "platform/RunningApplication.h"

#include <QObject>
#include <QRectF>

#include <optional>
#include <string>
#include <vector>

namespace quillary {

/// The running applications, and opening applications and files. Paths are absolute, UTF-8.
///
/// No operation fails visibly: what cannot be done is written to the log as one line and nothing else
/// happens.
class Workspace : public QObject {
    Q_OBJECT

public:
    /// Every running application, in a stable order (the order in which they started).
    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;
    /// The application that has the keyboard focus, if any.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;
    /// The frame of the full-screen window that has the focus, this program's own included; absent when there
    /// is none. Such a window covers the docks of the screens it is on. Global points.
    [[nodiscard]] virtual std::optional<QRectF> fullScreenFrame() const = 0;
    /// This program's own identifier, in the form of RunningApplication::bundleIdentifier.
    [[nodiscard]] virtual std::optional<std::string> ownBundleIdentifier() const = 0;

    /// Brings a running application to the front, or starts it.
    virtual void openApplication(const std::string& path) = 0;
    /// Opens a document or folder with its default application.
    virtual void open(const std::string& path) = 0;
    /// Opens documents with the given application.
    virtual void openWith(const std::vector<std::string>& paths, const std::string& application) = 0;
    /// Shows the path, selected, in the file manager.
    virtual void reveal(const std::string& path) = 0;
    /// Asks the application to quit, as its own close buttons would. Never kills.
    virtual void terminate(const RunningApplication& application) = 0;

Q_SIGNALS:
    void applicationLaunched();
    void applicationTerminated();
    void applicationActivated();
    void fullScreenChanged();
};

} // namespace quillary
