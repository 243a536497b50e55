#pragma once

#include "app/settings/FormGroup.h"
#include "app/settings/SettingsView.h"
#include "app/settings/SettingsWindow.h"
#include "app/settings/Switch.h"
#include "tests/app/Fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillary::test {

inline void mouse(QWidget& widget, QEvent::Type type, QPointF place) {
    const bool moves = type == QEvent::MouseMove;
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, widget.mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                      held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void clickOn(QWidget& widget, QPointF place) {
    mouse(widget, QEvent::MouseButtonPress, place);
    mouse(widget, QEvent::MouseButtonRelease, place);
}

inline void clickOn(QWidget& widget) {
    clickOn(widget, QRectF(widget.rect()).center());
}

inline void type(QWidget& widget, int key) {
    for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(kind, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

/// The settings window of a manager on a fake system with two screens.
class SettingsDesktop : public Desktop {
protected:
    SettingsDesktop() {
        platform.screens().connected = {screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)};
    }
    void open(SettingsWindow::Form form = SettingsWindow::Form::normal) {
        if (!manager) {
            start();
        }
        if (!settings) {
            settings = std::make_unique<SettingsWindow>(*manager);
        }
        settings->show(form);
        QApplication::processEvents();
    }
    [[nodiscard]] SettingsView& view() const { return *qobject_cast<SettingsView*>(settings->window()); }

    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> result;
        for (const FormGroup* group : view().groups()) {
            result.push_back(group->title().toStdString());
        }
        return result;
    }
    [[nodiscard]] FormGroup& group(const std::string& title) const {
        for (FormGroup* group : view().groups()) {
            if (group->title().toStdString() == title) {
                return *group;
            }
        }
        throw std::runtime_error("no group " + title);
    }
    /// The control of that kind and name in a group.
    template<typename Control>
    [[nodiscard]] Control& control(const std::string& groupTitle, const std::string& name) const {
        for (auto* found : group(groupTitle).findChildren<Control*>()) {
            if (found->accessibleName().toStdString() == name) {
                return *found;
            }
        }
        throw std::runtime_error("no control " + name + " in " + groupTitle);
    }
    [[nodiscard]] Switch& switchIn(const std::string& groupTitle, const std::string& name) const {
        return control<Switch>(groupTitle, name);
    }
    /// All texts that are seen in a group, controls' names too, from top to bottom and left to right.
    [[nodiscard]] std::vector<std::string> texts(const std::string& groupTitle) const {
        struct Text {
            QPoint place;
            std::string words;
        };
        std::vector<Text> found;
        FormGroup& all = group(groupTitle);
        for (const auto* widget : all.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            // A switch has its words beside it.
            const bool spoken =
                label != nullptr || (button != nullptr && qobject_cast<const Switch*>(button) == nullptr);
            if (spoken && widget->isVisibleTo(&all)) {
                found.push_back({widget->mapTo(&all, widget->rect().center()),
                                 (label != nullptr ? label->text() : button->text()).toStdString()});
            }
        }
        constexpr int line = 8;
        std::ranges::stable_sort(found, [](const Text& a, const Text& b) {
            return std::abs(a.place.y() - b.place.y()) > line ? a.place.y() < b.place.y()
                                                              : a.place.x() < b.place.x();
        });
        std::vector<std::string> words;
        words.reserve(found.size());
        for (auto& text : found) {
            words.push_back(std::move(text.words));
        }
        return words;
    }

    /// From here on each save fails, which is logged, so that they can be counted.
    void countSaves() {
        std::filesystem::remove(manager->settingsURL);
        std::filesystem::create_directory(manager->settingsURL);
        platform.log().lines.clear();
    }
    [[nodiscard]] std::ptrdiff_t saves() {
        return std::ranges::count_if(platform.log().lines, [](const std::string& line) {
            return line.starts_with("Quillary: save failed ");
        });
    }

    std::unique_ptr<SettingsWindow> settings;
};

} // namespace quillary::test
