#include "platform/linux/windows/WindowMatcher.h"

#include "core/AsciiText.h"
#include "core/Paths.h"
#include "platform/linux/entries/ProgramName.h"
#include "platform/linux/windows/UnitName.h"

#include <algorithm>
#include <array>
#include <string>

namespace quillary {

namespace {

using Key = EntryIndex::Key;

// Classes that toolkits and interpreters give to windows of any application.
constexpr std::array<std::string_view, 16> sharedClasses = {"sun-awt-x11-xframepeer",
                                                            "sun-awt-x11-xdialogpeer",
                                                            "sun-awt-x11-xwindowpeer",
                                                            "main",
                                                            "main.py",
                                                            "__main__.py",
                                                            "app",
                                                            "app.py",
                                                            "index",
                                                            "toplevel",
                                                            "tk",
                                                            "unknown",
                                                            "steam_app_default",
                                                            "run.py",
                                                            "javax",
                                                            "gtk-application"};

struct Evidence {
    const WindowInfo& window;
    const ProcessFacts& process;
};

std::string distinctive(const std::string& word) {
    const auto folded = lowered(word);
    const bool shared = std::ranges::find(sharedClasses, folded) != sharedClasses.end();
    return shared || isInterpreter(folded) ? std::string() : word;
}

std::string windowClass(const Evidence& evidence) {
    return distinctive(evidence.window.windowClass);
}

std::string instance(const Evidence& evidence) {
    return distinctive(evidence.window.instance);
}

// Ids have no spaces: "Google Chrome" means "google-chrome".
std::string dashed(std::string word) {
    std::ranges::replace(word, ' ', '-');
    return word;
}

std::string classAsId(const Evidence& evidence) {
    return dashed(windowClass(evidence));
}

std::string instanceAsId(const Evidence& evidence) {
    return dashed(instance(evidence));
}

std::string applicationId(const Evidence& evidence) {
    // KDE's property may be the path of the entry.
    return std::string(baseName(evidence.window.applicationId));
}

std::string tailOf(std::string_view word) {
    return std::string(reverseDnsTail(withoutEntrySuffix(word)));
}

std::string applicationIdTail(const Evidence& evidence) {
    return tailOf(applicationId(evidence));
}

std::string classTail(const Evidence& evidence) {
    return tailOf(windowClass(evidence));
}

// Chromium gives a web application's window the class of the browser and an instance that names the
// application.
std::string webApp(const Evidence& evidence) {
    constexpr std::string_view mark = "crx_";
    for (const auto* word : {&evidence.window.instance, &evidence.window.windowClass}) {
        if (word->starts_with(mark)) {
            return *word;
        }
    }
    return {};
}

std::string webAppExtension(const Evidence& evidence) {
    std::string word = webApp(evidence);
    std::ranges::replace(word, '_', '-');
    return std::string(webAppId(word));
}

std::string windowSandbox(const Evidence& evidence) {
    return evidence.window.sandboxId;
}

std::string processSandbox(const Evidence& evidence) {
    return evidence.process.sandbox;
}

std::string sandboxUnit(const Evidence& evidence) {
    const auto unit = unitApplication(evidence.process.controlGroup);
    return unit.sandboxed ? unit.id : std::string();
}

std::string sandboxUnitSnap(const Evidence& evidence) {
    const auto id = sandboxUnit(evidence);
    const auto mark = id.find('_');
    return mark == std::string::npos ? std::string() : id.substr(0, mark);
}

std::string unit(const Evidence& evidence) {
    return unitApplication(evidence.process.controlGroup).id;
}

// Programs inherit the variable from the process that started them; only its companion with the pid shows
// that it was set for this one.
std::string launchedEntry(const Evidence& evidence) {
    const auto& process = evidence.process;
    const bool own = process.pid > 0 && process.launchedEntryPid == process.pid;
    return own ? process.launchedEntry : std::string();
}

std::string launchedEntryId(const Evidence& evidence) {
    return std::string(baseName(launchedEntry(evidence)));
}

std::string windowsProgram(const Evidence& evidence) {
    const auto name = lowered(evidence.window.windowClass);
    return name.ends_with(".exe") && name != "explorer.exe" ? name : std::string();
}

std::string programByExecutable(const Evidence& evidence) {
    const auto& process = evidence.process;
    if (process.executable.empty()) {
        return {};
    }
    auto words = process.arguments;
    words.resize(std::max(words.size(), std::size_t{1}));
    words.front() = process.executable;
    return programName(words);
}

std::string programByCommand(const Evidence& evidence) {
    return programName(evidence.process.arguments);
}

struct Rule {
    std::string (*word)(const Evidence&);
    Key key;
};

// From the strongest to the weakest evidence.
constexpr std::array rules = {
    Rule{webApp, Key::startupWmClass},
    Rule{webAppExtension, Key::webApp},
    Rule{windowClass, Key::startupWmClass},
    Rule{instance, Key::startupWmClass},
    Rule{applicationId, Key::id},
    Rule{classAsId, Key::id},
    Rule{instanceAsId, Key::id},
    Rule{applicationIdTail, Key::id},
    Rule{applicationIdTail, Key::idTail},
    Rule{classTail, Key::id},
    Rule{classTail, Key::idTail},
    Rule{classAsId, Key::idTail},
    Rule{instanceAsId, Key::idTail},
    Rule{windowSandbox, Key::id},
    Rule{windowSandbox, Key::sandbox},
    Rule{processSandbox, Key::id},
    Rule{sandboxUnit, Key::id},
    Rule{processSandbox, Key::sandbox},
    Rule{sandboxUnitSnap, Key::sandbox},
    Rule{unit, Key::id},
    Rule{launchedEntry, Key::path},
    Rule{launchedEntryId, Key::id},
    Rule{windowsProgram, Key::program},
    Rule{programByExecutable, Key::program},
    Rule{programByCommand, Key::program},
};

} // namespace

WindowMatcher::WindowMatcher(const EntryIndex& entries) : m_entries(entries) {}

const DesktopEntry* WindowMatcher::match(const WindowInfo& window, const ProcessFacts& process) const {
    const Evidence evidence{window, process};
    for (const auto& rule : rules) {
        if (const auto* entry = m_entries.find(rule.key, rule.word(evidence))) {
            return entry;
        }
    }
    return nullptr;
}

} // namespace quillary
