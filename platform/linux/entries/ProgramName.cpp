#include "platform/linux/entries/ProgramName.h"

#include "core/AsciiText.h"
#include "core/Paths.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillary {

namespace {

enum class Kind { program, wrapper, launcher, shell, interpreter, java, wine };

struct KnownProgram {
    std::string_view name;
    Kind kind;
};

// Names with a version behind them ("python3.11", "electron22", "lua5.4") count as the name.
constexpr std::array knownPrograms = {
    KnownProgram{"env", Kind::wrapper},
    KnownProgram{"nice", Kind::wrapper},
    KnownProgram{"ionice", Kind::wrapper},
    KnownProgram{"nohup", Kind::wrapper},
    KnownProgram{"setsid", Kind::wrapper},
    KnownProgram{"pkexec", Kind::wrapper},
    KnownProgram{"sudo", Kind::wrapper},
    KnownProgram{"gksu", Kind::wrapper},
    KnownProgram{"kdesu", Kind::wrapper},
    KnownProgram{"firejail", Kind::wrapper},
    KnownProgram{"prime-run", Kind::wrapper},
    KnownProgram{"gamemoderun", Kind::wrapper},
    KnownProgram{"mangohud", Kind::wrapper},
    KnownProgram{"dbus-launch", Kind::wrapper},
    KnownProgram{"dbus-run-session", Kind::wrapper},
    KnownProgram{"gio-launch-desktop", Kind::wrapper},
    KnownProgram{"flatpak", Kind::launcher},
    KnownProgram{"snap", Kind::launcher},
    KnownProgram{"bwrap", Kind::launcher},
    KnownProgram{"xdg-open", Kind::launcher},
    KnownProgram{"gtk-launch", Kind::launcher},
    KnownProgram{"gio", Kind::launcher},
    KnownProgram{"gdbus", Kind::launcher},
    KnownProgram{"busctl", Kind::launcher},
    KnownProgram{"dbus-send", Kind::launcher},
    KnownProgram{"sh", Kind::shell},
    KnownProgram{"bash", Kind::shell},
    KnownProgram{"dash", Kind::shell},
    KnownProgram{"zsh", Kind::shell},
    KnownProgram{"ksh", Kind::shell},
    KnownProgram{"fish", Kind::shell},
    KnownProgram{"busybox", Kind::wrapper},
    KnownProgram{"python", Kind::interpreter},
    KnownProgram{"pypy", Kind::interpreter},
    KnownProgram{"perl", Kind::interpreter},
    KnownProgram{"ruby", Kind::interpreter},
    KnownProgram{"node", Kind::interpreter},
    KnownProgram{"nodejs", Kind::interpreter},
    KnownProgram{"gjs", Kind::interpreter},
    KnownProgram{"gjs-console", Kind::interpreter},
    KnownProgram{"php", Kind::interpreter},
    KnownProgram{"lua", Kind::interpreter},
    KnownProgram{"luajit", Kind::interpreter},
    KnownProgram{"mono", Kind::interpreter},
    KnownProgram{"mono-sgen", Kind::interpreter},
    KnownProgram{"dotnet", Kind::interpreter},
    KnownProgram{"tclsh", Kind::interpreter},
    KnownProgram{"wish", Kind::interpreter},
    KnownProgram{"guile", Kind::interpreter},
    KnownProgram{"electron", Kind::interpreter},
    KnownProgram{"java", Kind::java},
    KnownProgram{"javaw", Kind::java},
    KnownProgram{"wine", Kind::wine},
    KnownProgram{"wine64", Kind::wine},
    KnownProgram{"wine-preloader", Kind::wine},
    KnownProgram{"wine64-preloader", Kind::wine},
    KnownProgram{"wine-stable", Kind::wine},
    KnownProgram{"wine-development", Kind::wine},
};

// Names that scripts and archives of many applications share. The name of their folder says more.
constexpr std::array<std::string_view, 12> commonScriptNames = {"main",     "__main__", "app", "app.asar",
                                                                "index",    "start",    "run", "launch",
                                                                "launcher", "gui",      "cli", "default"};

constexpr std::array<std::string_view, 11> commonFolders = {"bin",   "lib", "resources", "src", "dist", "app",
                                                            "share", "usr", "local",     "opt", ""};

constexpr std::array<std::string_view, 9> scriptExtensions = {".py", ".pyw", ".pl",  ".rb", ".js",
                                                              ".sh", ".jar", ".dll", ".tcl"};

Kind kindOf(std::string_view name) {
    auto bare = name;
    const auto lastLetter = bare.find_last_not_of("0123456789.");
    bare = lastLetter == std::string_view::npos ? std::string_view() : bare.substr(0, lastLetter + 1);
    for (const auto& known : knownPrograms) {
        if (known.name == name || (known.kind == Kind::interpreter && known.name == bare)) {
            return known.kind;
        }
    }
    return Kind::program;
}

bool isAssignment(std::string_view word) {
    const auto sign = word.find('=');
    return sign != std::string_view::npos && sign > 0 &&
           word.substr(0, sign).find('/') == std::string_view::npos;
}

bool isOption(std::string_view word) {
    return word.starts_with('-') && word.size() > 1;
}

bool isNumber(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string_view withoutScriptExtension(std::string_view name) {
    for (const auto extension : scriptExtensions) {
        if (name.size() > extension.size() && name.ends_with(extension)) {
            return name.substr(0, name.size() - extension.size());
        }
    }
    return name;
}

template<typename List>
bool contains(const List& list, std::string_view word) {
    return std::ranges::find(list, word) != list.end();
}

std::string scriptName(std::string_view path) {
    while (!path.empty()) {
        const auto name = withoutScriptExtension(baseName(path));
        if (!contains(commonScriptNames, lowered(name)) && !contains(commonFolders, lowered(name))) {
            return std::string(name);
        }
        const auto slash = path.rfind('/');
        if (slash == std::string_view::npos) {
            break;
        }
        path = path.substr(0, slash);
    }
    return {};
}

using Words = std::vector<std::string>;

std::string interpretedName(const Words& words, std::size_t first, Kind kind) {
    for (auto index = first; index < words.size(); ++index) {
        const auto& word = words[index];
        if (word == "-c" || word == "-e") {
            return {};
        }
        if (word == "-m" && kind == Kind::interpreter) {
            return index + 1 < words.size() ? words[index + 1] : std::string();
        }
        if (!isOption(word)) {
            return scriptName(word);
        }
    }
    return {};
}

std::string javaName(const Words& words, std::size_t first) {
    for (auto index = first; index < words.size(); ++index) {
        const auto& word = words[index];
        if (word == "-jar") {
            return index + 1 < words.size() ? scriptName(words[index + 1]) : std::string();
        }
        if (word == "-cp" || word == "-classpath" || word == "--class-path" || word == "-p" ||
            word == "--module-path" || word == "--add-opens" || word == "--add-modules") {
            ++index;
        } else if (!isOption(word)) {
            // The main class: its last component names the application unless it is plain "Main".
            const auto dot = word.rfind('.');
            return scriptName(dot == std::string::npos ? word : word.substr(dot + 1));
        }
    }
    return {};
}

std::string windowsName(const Words& words, std::size_t first) {
    for (auto index = first; index < words.size(); ++index) {
        const auto& word = words[index];
        const auto cut = word.find_last_of("/\\");
        const auto name = lowered(cut == std::string::npos ? word : word.substr(cut + 1));
        if (name.size() > 4 && (name.ends_with(".exe") || name.ends_with(".lnk"))) {
            const auto stem = name.substr(0, name.size() - 4);
            if (stem != "start" && stem != "explorer") {
                return stem + ".exe";
            }
        }
    }
    return {};
}

std::size_t pastWrapper(const Words& words, std::size_t first) {
    auto index = first;
    while (index < words.size()) {
        const auto& word = words[index];
        const bool takesValue = word == "-u" || word == "-C" || word == "--unset" || word == "--chdir";
        if (takesValue) {
            index += 2;
        } else if (isOption(word) || isAssignment(word) || isNumber(word)) {
            ++index;
        } else {
            break;
        }
    }
    return index;
}

} // namespace

bool isInterpreter(std::string_view name) {
    return kindOf(name) != Kind::program;
}

std::string programName(const std::vector<std::string>& arguments) {
    std::size_t index = 0;
    while (index < arguments.size()) {
        const auto name = baseName(arguments[index]);
        const auto kind = kindOf(name);
        ++index;
        switch (kind) {
        case Kind::program: {
            const auto folded = lowered(name);
            if (folded.ends_with(".exe")) {
                return windowsName(arguments, index - 1);
            }
            return scriptName(arguments[index - 1]);
        }
        case Kind::wrapper:
            index = pastWrapper(arguments, index);
            break;
        case Kind::launcher:
            return {};
        case Kind::shell:
        case Kind::interpreter:
            return interpretedName(arguments, index, kind);
        case Kind::java:
            return javaName(arguments, index);
        case Kind::wine:
            return windowsName(arguments, index);
        }
    }
    return {};
}

} // namespace quillary
