#import "platform/macos/MacPointerMonitor.h"

#import "platform/macos/MacScreens.h"

#include <QPointer>

#include <cmath>

#import <AppKit/AppKit.h>

namespace quillary {

namespace {

constexpr NSEventMask movements = NSEventMaskMouseMoved | NSEventMaskLeftMouseDragged;
static_assert(movements == 96);

} // namespace

struct MacPointerMonitor::Native {
    id global = nil;
    id local = nil;
};

MacPointerMonitor::MacPointerMonitor() : native(std::make_unique<Native>()) {
    clock.start();
    pending.setSingleShot(true);
    pending.setTimerType(Qt::PreciseTimer);
    connect(&pending, &QTimer::timeout, this, &MacPointerMonitor::tell);

    const QPointer<MacPointerMonitor> self(this);
    native->global = [NSEvent addGlobalMonitorForEventsMatchingMask:movements
                                                            handler:^(NSEvent*) {
                                                              if (self) {
                                                                  self->follow();
                                                              }
                                                            }];
    native->local = [NSEvent addLocalMonitorForEventsMatchingMask:movements
                                                          handler:^NSEvent*(NSEvent* event) {
                                                            if (self) {
                                                                self->follow();
                                                            }
                                                            return event;
                                                          }];
}

MacPointerMonitor::~MacPointerMonitor() {
    for (id monitor : {native->global, native->local}) {
        if (monitor != nil) {
            [NSEvent removeMonitor:monitor];
        }
    }
}

QPointF MacPointerMonitor::location() const {
    const NSPoint place = [NSEvent mouseLocation];
    return MacScreens::coordinates().point(place.x, place.y);
}

void MacPointerMonitor::refresh() {
    tell();
}

void MacPointerMonitor::follow() {
    const double wait = pace.wait(static_cast<double>(clock.nsecsElapsed()) * 1e-9);
    if (wait <= 0) {
        tell();
    } else if (!pending.isActive()) {
        pending.start(static_cast<int>(std::ceil(wait * 1000.0)));
    }
}

void MacPointerMonitor::tell() {
    pending.stop();
    const QPointF place = location();
    if (pace.tells(place, static_cast<double>(clock.nsecsElapsed()) * 1e-9)) {
        Q_EMIT moved(place);
    }
}

} // namespace quillary
