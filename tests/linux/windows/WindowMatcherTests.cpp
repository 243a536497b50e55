#include "platform/linux/entries/ProgramName.h"
#include "platform/linux/windows/WindowMatcher.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

struct Installed {
    std::string id;
    std::string wmClass;
    std::vector<std::string> command;
    bool noDisplay = false;
    std::string sandbox = {};
};

// Entries as packages install them.
const std::vector<Installed>& installed() {
    static const std::vector<Installed> list = {
        {"firefox-esr.desktop", "Firefox-esr", {"firefox-esr"}},
        {"google-chrome.desktop", "Google-chrome", {"/usr/bin/google-chrome-stable"}},
        {"photos.desktop",
         "crx_aghbiahbpaijignceidepookljebhfak",
         {"/opt/google/chrome/google-chrome", "--app-id=aghbiahbpaijignceidepookljebhfak"}},
        {"chrome-fmgjjmmmlfnkbppncabfkddbjimcfncm-Default.desktop",
         "",
         {"/opt/google/chrome/google-chrome", "--app-id=fmgjjmmmlfnkbppncabfkddbjimcfncm"}},
        {"org.gnome.Nautilus.desktop", "", {"nautilus", "--new-window"}},
        {"org.gnome.Terminal.desktop", "", {"gnome-terminal"}},
        {"debian-xterm.desktop", "XTerm", {"xterm"}},
        {"mutt.desktop", "", {"mutt"}},
        {"code.desktop", "Code", {"/usr/share/code/code"}},
        {"code-url-handler.desktop", "Code", {"/usr/share/code/code", "--open-url"}, true},
        {"libreoffice-calc.desktop", "libreoffice-calc", {"libreoffice", "--calc"}},
        {"libreoffice-startcenter.desktop", "libreoffice-startcenter", {"libreoffice"}},
        {"libreoffice-writer.desktop", "libreoffice-writer", {"libreoffice", "--writer"}},
        {"libreoffice-xsltfilter.desktop", "", {"libreoffice"}, true},
        {"gimp.desktop", "", {"gimp-2.10"}},
        {"org.kde.dolphin.desktop", "", {"dolphin"}},
        {"org.telegram.desktop.desktop", "TelegramDesktop", {"telegram-desktop"}},
        {"org.mozilla.Thunderbird.desktop", "", {"flatpak", "run"}, false, "org.mozilla.Thunderbird"},
        {"spotify_spotify.desktop", "", {"env", "BAMF=x", "/snap/bin/spotify"}, false, "spotify"},
        {"obsidian.desktop", "", {"/usr/lib/electron22/electron", "/usr/lib/obsidian/app.asar"}},
        {"signal-desktop.desktop", "Signal", {"/opt/Signal/signal-desktop"}},
        {"wine-Programs-Notepad++.desktop", "", {"env", "W=x", "wine", "C:\\\\ProgramData\\\\Notepad++.lnk"}},
        {"wine-irfan.desktop", "i_view64.exe", {"env", "W=x", "wine", "x"}},
        {"jetbrains-idea.desktop", "jetbrains-idea", {"/opt/idea/bin/idea.sh"}},
        {"freecol.desktop", "", {"java", "-jar", "/usr/share/games/freecol/FreeCol.jar"}},
        {"bad-java.desktop", "sun-awt-X11-XFramePeer", {"java", "-jar", "/opt/bad/other.jar"}},
        {"terminator.desktop", "", {"terminator"}},
        {"python3.11.desktop", "", {"/usr/bin/python3.11"}, true},
        {"solaar.desktop", "", {"python3", "/usr/share/solaar/main.py"}},
        {"thunar.desktop", "", {"thunar"}},
        {"thunar-settings.desktop", "", {"thunar-settings"}},
        {"thunar-bulk-rename.desktop", "", {"thunar", "-B"}},
        {"steam.desktop", "", {"/usr/games/steam"}},
        {"Hollow Knight.desktop", "", {"steam", "steam://rungameid/367520"}},
        {"electron22.desktop", "", {"electron22"}, true},
        {"google-earth-pro.desktop", "", {"/opt/google/earth/pro/google-earth-pro"}},
    };
    return list;
}

const EntryIndex& index() {
    static const EntryIndex entries = [] {
        std::vector<DesktopEntry> list;
        for (const auto& item : installed()) {
            DesktopEntry entry;
            entry.id = item.id;
            entry.path = "/usr/share/applications/" + item.id;
            entry.name = item.id;
            entry.startupWmClass = item.wmClass;
            entry.program = programName(item.command);
            entry.arguments = item.command.size() - 1;
            entry.noDisplay = item.noDisplay;
            entry.sandbox = item.sandbox;
            list.push_back(entry);
        }
        return EntryIndex(list);
    }();
    return entries;
}

struct Seen {
    std::string windowClass = {};
    std::string instance = {};
    std::string applicationId = {};
    std::string sandboxId = {};
    std::string executable = {};
    std::vector<std::string> arguments = {};
    std::string sandbox = {};
    std::string controlGroup = {};
    std::string launchedEntry = {};
    std::int64_t launchedEntryPid = 0;
};

struct Case {
    std::string what;
    Seen seen;
    std::string id;
};

std::string matched(const Seen& seen) {
    WindowInfo window;
    window.id = 1;
    window.pid = 100;
    window.windowClass = seen.windowClass;
    window.instance = seen.instance;
    window.applicationId = seen.applicationId;
    window.sandboxId = seen.sandboxId;
    ProcessFacts process;
    process.pid = 100;
    process.executable = seen.executable;
    process.arguments = seen.arguments;
    process.sandbox = seen.sandbox;
    process.controlGroup = seen.controlGroup;
    process.launchedEntry = seen.launchedEntry;
    process.launchedEntryPid = seen.launchedEntryPid;
    const auto* entry = WindowMatcher(index()).match(window, process);
    return entry != nullptr ? entry->id : "none";
}

constexpr const char* appSlice = "/user.slice/user-1000.slice/user@1000.service/app.slice/";

const std::vector<Case>& byWindow() {
    static const std::vector<Case> cases = {
        {"class is StartupWMClass",
         {.windowClass = "Firefox-esr", .instance = "Navigator"},
         "firefox-esr.desktop"},
        {"class in another case", {.windowClass = "firefox-ESR"}, "firefox-esr.desktop"},
        {"instance is StartupWMClass",
         {.windowClass = "soffice", .instance = "libreoffice-writer"},
         "libreoffice-writer.desktop"},
        {"class before instance",
         {.windowClass = "libreoffice-calc", .instance = "libreoffice-writer"},
         "libreoffice-calc.desktop"},
        {"visible before NoDisplay", {.windowClass = "Code", .instance = "code"}, "code.desktop"},
        {"StartupWMClass before the application id",
         {.windowClass = "TelegramDesktop", .applicationId = "org.kde.dolphin"},
         "org.telegram.desktop.desktop"},
        {"browser", {.windowClass = "Google-chrome", .instance = "google-chrome"}, "google-chrome.desktop"},
        {"web app with StartupWMClass",
         {.windowClass = "Google-chrome", .instance = "crx_aghbiahbpaijignceidepookljebhfak"},
         "photos.desktop"},
        {"web app known by its entry's name",
         {.windowClass = "Google-chrome", .instance = "crx_fmgjjmmmlfnkbppncabfkddbjimcfncm"},
         "chrome-fmgjjmmmlfnkbppncabfkddbjimcfncm-Default.desktop"},
        {"web app on Wayland",
         {.windowClass = "chrome-fmgjjmmmlfnkbppncabfkddbjimcfncm-Default"},
         "chrome-fmgjjmmmlfnkbppncabfkddbjimcfncm-Default.desktop"},
        {"web app that is not installed",
         {.windowClass = "Google-chrome", .instance = "crx_aaaaaaaaaaaaaaaabbbbbbbbbbbbbbbb"},
         "google-chrome.desktop"},
        {"GTK's application id",
         {.windowClass = "Gnome-terminal-server", .applicationId = "org.gnome.Terminal"},
         "org.gnome.Terminal.desktop"},
        {"KDE's desktop file",
         {.windowClass = "x", .applicationId = "org.kde.dolphin"},
         "org.kde.dolphin.desktop"},
        {"KDE's desktop file as a path",
         {.applicationId = "/usr/share/applications/org.kde.dolphin.desktop"},
         "org.kde.dolphin.desktop"},
        {"class is the id", {.windowClass = "Thunar", .instance = "thunar"}, "thunar.desktop"},
        {"class with spaces is the id", {.windowClass = "Google Earth Pro"}, "google-earth-pro.desktop"},
        {"class is the tail of an id", {.windowClass = "dolphin"}, "org.kde.dolphin.desktop"},
        {"instance is the tail of an id",
         {.windowClass = "x", .instance = "nautilus"},
         "org.gnome.Nautilus.desktop"},
        {"reverse-DNS class of a plain id", {.windowClass = "org.gimp.Gimp"}, "gimp.desktop"},
        {"flatpak whose class is its id",
         {.windowClass = "org.mozilla.Thunderbird", .instance = "thunderbird"},
         "org.mozilla.Thunderbird.desktop"},
        {"LibreOffice without a document",
         {.windowClass = "libreoffice-startcenter", .instance = "libreoffice"},
         "libreoffice-startcenter.desktop"},
        {"tail that many share tells nothing", {.windowClass = "com.example.desktop"}, "none"},
        {"terminal with a class of its own", {.windowClass = "mutt", .instance = "kitty"}, "mutt.desktop"},
        {"terminal that keeps its own instance",
         {.windowClass = "mutt", .instance = "xterm"},
         "debian-xterm.desktop"},
        {"Wine with StartupWMClass", {.windowClass = "i_view64.exe"}, "wine-irfan.desktop"},
        {"Wine without", {.windowClass = "notepad++.exe"}, "wine-Programs-Notepad++.desktop"},
        {"Wine without an entry",
         {.windowClass = "setup.exe", .executable = "/usr/bin/wine64-preloader"},
         "none"},
        {"Java with a class of its own", {.windowClass = "jetbrains-idea"}, "jetbrains-idea.desktop"},
        {"nothing known", {}, "none"},
        {"hostile class", {.windowClass = std::string(1U << 20U, '.')}, "none"},
        {"class that looks like a path", {.windowClass = "../../etc/passwd"}, "none"},
    };
    return cases;
}

const std::vector<Case>& byProcess() {
    static const std::vector<Case> cases = {
        {"flatpak that the window names",
         {.windowClass = "x", .sandboxId = "org.mozilla.Thunderbird"},
         "org.mozilla.Thunderbird.desktop"},
        {"flatpak's own description",
         {.windowClass = "x", .sandbox = "org.mozilla.Thunderbird"},
         "org.mozilla.Thunderbird.desktop"},
        {"flatpak's scope",
         {.controlGroup = std::string(appSlice) + "app-flatpak-org.mozilla.Thunderbird-99.scope"},
         "org.mozilla.Thunderbird.desktop"},
        {"snap's environment", {.sandbox = "spotify"}, "spotify_spotify.desktop"},
        {"snap's scope",
         {.controlGroup =
              std::string(appSlice) + "snap.spotify.spotify-e8fdfc94-1234-4e5f-9abc-0123456789ab.scope"},
         "spotify_spotify.desktop"},
        {"sandbox before another's unit",
         {.sandbox = "spotify", .controlGroup = std::string(appSlice) + "app-gnome-gimp-1.scope"},
         "spotify_spotify.desktop"},
        {"scope of the desktop",
         {.windowClass = "x",
          .controlGroup = std::string(appSlice) + "app-gnome-org.gnome.Nautilus-4711.scope"},
         "org.gnome.Nautilus.desktop"},
        {"scope with escapes",
         {.controlGroup = std::string(appSlice) + "app-quillary-firefox\\x2desr-12.scope"},
         "firefox-esr.desktop"},
        {"scope before what GIO launched",
         {.controlGroup = std::string(appSlice) + "app-gimp-1.scope",
          .launchedEntry = "/usr/share/applications/thunar.desktop",
          .launchedEntryPid = 100},
         "gimp.desktop"},
        {"GIO launched this process",
         {.windowClass = "x",
          .launchedEntry = "/usr/share/applications/steam.desktop",
          .launchedEntryPid = 100},
         "steam.desktop"},
        {"GIO launched an entry that stands elsewhere now",
         {.launchedEntry = "/old/steam.desktop", .launchedEntryPid = 100},
         "steam.desktop"},
        {"GIO launched the process's parent",
         {.windowClass = "x",
          .launchedEntry = "/usr/share/applications/steam.desktop",
          .launchedEntryPid = 99},
         "none"},
        {"executable", {.executable = "/usr/bin/gimp-2.10", .arguments = {"gimp"}}, "gimp.desktop"},
        {"terminal with an unknown class",
         {.windowClass = "scratchpad", .executable = "/usr/bin/xterm"},
         "debian-xterm.desktop"},
        {"Electron with a wrong class",
         {.windowClass = "Electron", .instance = "electron", .executable = "/opt/Signal/signal-desktop"},
         "signal-desktop.desktop"},
        {"Electron of the system",
         {.windowClass = "electron",
          .executable = "/usr/lib/electron22/electron",
          .arguments = {"/usr/lib/electron22/electron", "/usr/lib/obsidian/app.asar"}},
         "obsidian.desktop"},
        {"several entries of one program", {.executable = "/usr/bin/thunar"}, "thunar.desktop"},
        {"several entries, none with its name",
         {.executable = "/usr/bin/libreoffice"},
         "libreoffice-startcenter.desktop"},
        {"game that the shop starts is not the shop", {.windowClass = "steam_app_367520"}, "none"},
        {"script of an interpreter",
         {.windowClass = "python3",
          .executable = "/usr/bin/python3.11",
          .arguments = {"/usr/bin/python3", "/usr/bin/terminator"}},
         "terminator.desktop"},
        {"script of a common name",
         {.windowClass = "Main.py",
          .executable = "/usr/bin/python3.11",
          .arguments = {"python3", "/usr/share/solaar/main.py"}},
         "solaar.desktop"},
        {"interpreter alone is no application",
         {.windowClass = "python3.11",
          .executable = "/usr/bin/python3.11",
          .arguments = {"python3.11", "/home/me/mine.py"}},
         "none"},
        {"shell alone is no application",
         {.executable = "/usr/bin/bash", .arguments = {"bash", "-c", "x"}},
         "none"},
        {"Java by its archive",
         {.windowClass = "sun-awt-X11-XFramePeer",
          .executable = "/usr/lib/jvm/bin/java",
          .arguments = {"java", "-Xmx1g", "-jar", "/usr/share/games/freecol/FreeCol.jar"}},
         "freecol.desktop"},
        {"Java's own class tells nothing",
         {.windowClass = "sun-awt-X11-XFramePeer",
          .executable = "/usr/lib/jvm/bin/java",
          .arguments = {"java", "A"}},
         "none"},
        {"no class at all", {.executable = "/usr/bin/dolphin"}, "org.kde.dolphin.desktop"},
        {"another process of the same entry",
         {.windowClass = "x", .executable = "/usr/share/code/code", .arguments = {"code", "--type=gpu"}},
         "code.desktop"},
        {"executable that may not be read", {.arguments = {"/usr/bin/gimp-2.10"}}, "gimp.desktop"},
    };
    return cases;
}

TEST(WindowMatcher, windowsTellTheirEntry) {
    for (const auto& item : byWindow()) {
        EXPECT_EQ(matched(item.seen), item.id) << item.what;
    }
}

TEST(WindowMatcher, processesTellTheirEntryWhereWindowsDoNot) {
    for (const auto& item : byProcess()) {
        EXPECT_EQ(matched(item.seen), item.id) << item.what;
    }
}

TEST(WindowMatcher, aWindowThatSaysNothingMatchesNoEntryThatSaysNothing) {
    DesktopEntry blank;
    blank.id = ".desktop";
    blank.path = "/usr/share/applications/.desktop";
    const EntryIndex entries({blank});
    EXPECT_EQ(WindowMatcher(entries).match({}, {}), nullptr);
    WindowInfo window;
    window.windowClass = "Firefox";
    EXPECT_EQ(WindowMatcher(entries).match(window, {}), nullptr);
}

} // namespace

} // namespace quillary::test
