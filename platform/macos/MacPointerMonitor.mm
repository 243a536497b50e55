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

MacPointerMonitor::MacPointerMonitor() : m_native(std::make_unique<Native>()) {
    m_clock.start();
    m_pending.setSingleShot(true);
    m_pending.setTimerType(Qt::PreciseTimer);
    connect(&m_pending, &QTimer::timeout, this, &MacPointerMonitor::report);

    const QPointer<MacPointerMonitor> self(this);
    m_native->global = [NSEvent addGlobalMonitorForEventsMatchingMask:movements
                                                              handler:^(NSEvent*) {
                                                                if (self) {
                                                                    self->follow();
                                                                }
                                                              }];
    m_native->local = [NSEvent addLocalMonitorForEventsMatchingMask:movements
                                                            handler:^NSEvent*(NSEvent* event) {
                                                              if (self) {
                                                                  self->follow();
                                                              }
                                                              return event;
                                                            }];
}

MacPointerMonitor::~MacPointerMonitor() {
    for (id monitor : {m_native->global, m_native->local}) {
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
    report();
}

void MacPointerMonitor::follow() {
    const double wait = m_pace.wait(static_cast<double>(m_clock.nsecsElapsed()) * 1e-9);
    if (wait <= 0) {
        report();
    } else if (!m_pending.isActive()) {
        m_pending.start(static_cast<int>(std::ceil(wait * 1000.0)));
    }
}

void MacPointerMonitor::report() {
    m_pending.stop();
    const QPointF place = location();
    if (m_pace.accepts(place, static_cast<double>(m_clock.nsecsElapsed()) * 1e-9)) {
        Q_EMIT moved(place);
    }
}

} // namespace quillary
