#pragma once

#include "app/settings/SettingsWindow.h"

#include <QWidget>

namespace quillary {

/// What the settings window shows. There is no form yet: it tells where the options are.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    explicit SettingsView(SettingsWindow::Form form);
};

} // namespace quillary
