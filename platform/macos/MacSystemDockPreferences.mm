#import "platform/macos/MacSystemDockPreferences.h"

#include "core/SystemDock.h"
#import "platform/macos/CFOwned.h"
#include "platform/macos/ChildProgram.h"
#import "platform/macos/MacText.h"
#include "platform/macos/PreferenceValue.h"

#import <Foundation/Foundation.h>

namespace quillary {

namespace {

CFStringRef domain() {
    return CFSTR("com.apple.dock");
}

CFStringRef autohideKey() {
    return CFSTR("autohide");
}

CFStringRef delayKey() {
    return CFSTR("autohide-delay");
}

PreferenceValue valueOf(CFStringRef key) {
    const CFOwned<CFPropertyListRef> value(CFPreferencesCopyAppValue(key, domain()));
    if (!value) {
        return {};
    }
    const CFTypeID type = CFGetTypeID(value.get());
    if (type == CFBooleanGetTypeID()) {
        return {CFBooleanGetValue(static_cast<CFBooleanRef>(value.get())) != 0};
    }
    double number = 0;
    if (type == CFNumberGetTypeID() &&
        CFNumberGetValue(static_cast<CFNumberRef>(value.get()), kCFNumberDoubleType, &number) != 0) {
        return {number};
    }
    return {};
}

// Null removes the key.
void setValue(CFStringRef key, CFPropertyListRef value) {
    CFPreferencesSetAppValue(key, value, domain());
}

} // namespace

DockPrefs MacSystemDockPreferences::read() const {
    return {.autohide = valueOf(autohideKey()).boolean(), .delay = valueOf(delayKey()).number()};
}

void MacSystemDockPreferences::write(const DockPrefs& prefs) {
    CFPropertyListRef autohide = nullptr;
    if (prefs.autohide) {
        autohide = *prefs.autohide ? kCFBooleanTrue : kCFBooleanFalse;
    }
    setValue(autohideKey(), autohide);

    CFOwned<CFNumberRef> delay;
    if (prefs.delay) {
        const double seconds = *prefs.delay;
        delay.reset(CFNumberCreate(kCFAllocatorDefault, kCFNumberDoubleType, &seconds));
    }
    setValue(delayKey(), delay.get());
}

void MacSystemDockPreferences::synchronise() {
    CFPreferencesAppSynchronize(domain());
}

void MacSystemDockPreferences::restart() {
    // launchd starts the Dock again.
    runAndWait("/usr/bin/killall", {"Dock"});
}

std::vector<std::string> MacSystemDockPreferences::pinnedItems() const {
    return SystemDock::load(MacText::plain(NSHomeDirectory()) + "/Library/Preferences/com.apple.dock.plist");
}

} // namespace quillary
