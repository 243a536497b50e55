#import "platform/macos/MacActivation.h"

#include "platform/macos/RaisedWindow.h"

#include <QApplication>
#include <QWidget>

#import <AppKit/AppKit.h>

namespace quillary {

namespace {

void bringForward() {
    if (@available(macOS 14.0, *)) {
        [[NSApplication sharedApplication] activate];
    } else {
        [[NSApplication sharedApplication] activateIgnoringOtherApps:YES];
    }
}

} // namespace

MacActivation::MacActivation() {
    [[NSApplication sharedApplication] setActivationPolicy:NSApplicationActivationPolicyAccessory];
    qApp->installEventFilter(this);
}

bool MacActivation::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget != nullptr && widget->isWindow() && !event->spontaneous() &&
        bringsForward(event->type(), widget->windowType())) {
        bringForward();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quillary
