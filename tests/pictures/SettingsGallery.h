#pragma once

#include "app/settings/SettingsWindow.h"
#include "app/view/Materials.h"

#include <QFont>
#include <QImage>

#include <string>
#include <vector>

namespace quillary::test {

/// The settings window as one picture shows it.
struct SettingsExhibit {
    std::string name;
    Shade shade = Shade::light;
    double scale = 1;
    SettingsWindow::Form form = SettingsWindow::Form::normal;
    /// The end of the form instead of its beginning.
    bool scrolled = false;
    /// The second screen's dock is switched off.
    bool partlyOff = false;
    /// How often the tabulator was pressed; 0 shows no focus.
    int tabs = 0;
    /// The size of the desktop's font; 0 is that of `settingsFont`.
    double points = 0;
    /// The window shows its whole form, however high; else it has its first size.
    bool whole = false;
};

[[nodiscard]] std::vector<SettingsExhibit> settingsExhibits();

/// The application's font for the pictures: the same on every machine.
[[nodiscard]] QFont settingsFont();

/// What the window shows of a form with two screens, at device pixels, without the window manager's frame.
/// The palette is set for the whole
/// application.
[[nodiscard]] QImage settingsPicture(const SettingsExhibit& exhibit);

} // namespace quillary::test
