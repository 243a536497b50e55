#pragma once

class QWidget;

namespace quillary {

class DockManager;

/// The one ordinary window of the program. It is made when it is first shown and kept: closing hides it.
namespace SettingsWindow {

enum class Form {
    /// With a banner that greets a new user. The form of the first showing holds for the window's life.
    welcome,
    normal,
};

/// Sets whose settings the window shows, or null; it does nothing while there is none and once that is gone.
/// The manager's platform must outlive the window.
void setManager(DockManager* manager);
/// Brings the window to the front with the focus.
void show(Form form);
/// The window; null until it was first shown.
[[nodiscard]] QWidget* window();
/// Destroys the window; the next showing makes another.
void discard();

} // namespace SettingsWindow

} // namespace quillary
