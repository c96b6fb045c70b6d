// Tests the matching of windows to the desktop entries in entries/. The windows have the properties
// that real programs set, and the entries resemble those of widely used programs.
#include "platform/linux/applications/application_matcher.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace glidemap {
namespace {

std::string valueOf(GKeyFile* file, const char* key) {
    char* const value = g_key_file_get_string(file, "Desktop Entry", key, nullptr);
    std::string text = value != nullptr ? value : "";
    g_free(value);
    return text;
}

// Parses the file without GIO, because GIO ignores entries whose program is not installed.
DesktopEntry readEntry(const std::filesystem::path& path) {
    GKeyFile* const file = g_key_file_new();
    EXPECT_TRUE(g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr)) << path;
    DesktopEntry entry;
    entry.identifier = path.stem();
    entry.name = valueOf(file, "Name");
    entry.path = "/usr/share/applications/" + path.filename().string();
    entry.windowClass = valueOf(file, "StartupWMClass");
    entry.visible = valueOf(file, "NoDisplay") != "true";
    entry.inTerminal = valueOf(file, "Terminal") == "true";
    readExec(entry, valueOf(file, "Exec"));
    g_key_file_unref(file);
    return entry;
}

std::vector<DesktopEntry> readEntries() {
    std::vector<DesktopEntry> entries;
    for (const auto& file : std::filesystem::directory_iterator(ENTRIES))
        entries.push_back(readEntry(file.path()));
    return entries;
}

// Provides the properties of one process, which always has the same id.
class OneProcess : public ProcessReader {
public:
    static constexpr pid_t number = 4242;

    ProcessFacts read(pid_t process) const override {
        return process == number ? facts : ProcessFacts{};
    }

    ProcessFacts facts;
};

ProcessFacts inUnit(const std::string& unit) {
    return {"0::/user.slice/user@1000.service/app.slice/" + unit + "\n", "", {}, "", false};
}

ProcessFacts typedInUnit(const std::string& unit) {
    ProcessFacts facts = inUnit(unit);
    facts.onTerminal = true;
    return facts;
}

ProcessFacts running(const std::string& executable, std::vector<std::string> arguments = {}) {
    return {"", executable, std::move(arguments), "", false};
}

ProcessFacts launchedFrom(const std::string& file) {
    return {"", "", {}, file, false};
}

WindowIdentity classed(const std::string& instance, const std::string& name) {
    return {name, instance, "", OneProcess::number};
}

WindowIdentity appID(const std::string& identifier) {
    return {identifier, "", "", std::nullopt};
}

struct Row {
    const char* what;
    WindowIdentity window;
    ProcessFacts process;
    const char* entry; // empty if no entry matches
};

const Row rows[] = {
    // Matches by app id.
    {"GTK 4 under Wayland", appID("org.gnome.Nautilus"), {}, "org.gnome.Nautilus"},
    {"GTK 3 under X11", classed("org.gnome.gedit", "Org.gnome.gedit"), {}, "org.gnome.gedit"},
    {"KDE under Wayland", appID("org.kde.konsole"), {}, "org.kde.konsole"},
    {"a flatpak under Wayland", appID("org.mozilla.firefox"), {}, "org.mozilla.firefox"},
    {"an id in another case", appID("alacritty"), {}, "Alacritty"},
    {"an old program", classed("pavucontrol", "Pavucontrol"), {}, "pavucontrol"},
    {"an id with an underscore", classed("sublime_text", "Sublime_text"), {}, "sublime_text"},
    {"an id with spaces", appID("Team Fortress 2"), {}, "Team Fortress 2"},
    {"an id with dashes, written with spaces", appID("Virt Manager"), {}, "virt-manager"},

    // Matches by StartupWMClass.
    {"Firefox ESR", classed("Navigator", "firefox-esr"), {}, "firefox-esr"},
    {"Electron", classed("code", "Code"), {}, "code"},
    {"Electron with another id", classed("signal", "Signal"), {}, "signal-desktop"},
    {"Java", classed("sun-awt-X11-XFramePeer", "jetbrains-idea"), {}, "jetbrains-idea"},
    {"an AppImage", classed("obsidian", "obsidian"), {}, "appimagekit_5f1c-Obsidian"},
    {"a class in another case", classed("emacs", "EMACS"), {}, "emacs"},
    {"an office application",
     classed("libreoffice", "libreoffice-writer"),
     {},
     "libreoffice-writer"},
    {"another", classed("libreoffice", "libreoffice-calc"), {}, "libreoffice-calc"},
    {"the office start center",
     classed("libreoffice", "libreoffice-startcenter"),
     {},
     "libreoffice-startcenter"},
    {"Wine", classed("editor.exe", "editor.exe"), running("/usr/bin/wine64-preloader"),
     "wine-Programs-Editor"},
    {"a reverse-DNS id whose class is short",
     classed("org.inkscape.Inkscape", "Inkscape"),
     {},
     "org.inkscape.Inkscape"},

    // A web application has the class of its browser.
    {"the browser", classed("google-chrome", "Google-chrome"), {}, "google-chrome"},
    {"a web application",
     classed("crx_agimnkijcaahngcd", "Google-chrome"),
     {},
     "chrome-agimnkijcaahngcd-Default"},
    {"another",
     classed("crx_faolnafnngnfdaknn", "Google-chrome"),
     {},
     "chrome-faolnafnngnfdaknn-Default"},
    {"a web application without an entry",
     classed("crx_other", "Google-chrome"),
     {},
     "google-chrome"},

    // Matches by instance, or by the last component of the id.
    {"a Qt program's instance", classed("mpv", "player"), {}, "mpv"},
    {"KDE under X11", classed("konsole", "konsole"), {}, "org.kde.konsole"},
    {"KDE's instance only", classed("dolphin", "Whatever"), {}, "org.kde.dolphin"},
    {"only the last component counts", appID("kde"), {}, ""},

    // Evidence that matches two entries is ignored.
    {"two entries of one class", appID("Shared Class"), {}, ""},
    {"two entries of one class, different programs", classed("x", "Shared Class"),
     running("/opt/example/nightly"), "io.example.Nightly"},
    {"two entries of one class, different units", classed("x", "Shared Class"),
     inUnit("app-gnome-io.example.Stable-1.scope"), "io.example.Stable"},
    {"a hidden entry is ignored next to a visible one", classed("x", "code"),
     running("/usr/share/code/code"), "code"},
    {"two entries of one program, one hidden", classed("x", "y"),
     running("/opt/z/google-chrome-stable"), "google-chrome"},
    {"three entries of one program", classed("x", "y"), running("/usr/bin/libreoffice"), ""},

    // Sandboxed packages match only their own entries.
    {"a flatpak next to other entries of its class", classed("Navigator", "firefox"),
     inUnit("app-flatpak-org.mozilla.firefox-77.scope"), "org.mozilla.firefox"},
    {"a snap next to other entries of its class", classed("Navigator", "firefox"),
     inUnit("snap.firefox.firefox-4b2a9c1e-1111-2222-3333-444455556666.scope"), "firefox_firefox"},
    {"neither", classed("Navigator", "firefox"), running("/usr/lib/firefox-esr/firefox-esr"),
     "org.mozilla.firefox"},
    {"a flatpak with several entries", classed("libreoffice", "libreoffice-writer"),
     inUnit("app-flatpak-org.libreoffice.LibreOffice-5.scope"),
     "org.libreoffice.LibreOffice.writer"},
    {"a snap's own class", classed("spotify", "Spotify"),
     inUnit("snap.spotify.spotify-4b2a9c1e-1111-2222-3333-444455556666.scope"), "spotify_spotify"},
    {"a flatpak whose window has no properties",
     {"", "", "", OneProcess::number},
     inUnit("app-flatpak-org.mozilla.firefox-77.scope"),
     "org.mozilla.firefox"},
    {"a flatpak without an entry matches no other", classed("code", "Code"),
     inUnit("app-flatpak-org.example.Fork-77.scope"), ""},

    // Matches Steam's games.
    {"a game", classed("steam_app_440", "steam_app_440"), inUnit("app-gnome-steam-9.scope"),
     "Team Fortress 2"},
    {"a game without an entry is not Steam", classed("steam_app_441", "steam_app_441"),
     inUnit("app-gnome-steam-9.scope"), ""},
    {"Steam itself", classed("steamwebhelper", "steam"), {}, "steam"},
    {"Steam's program", classed("x", "y"), running("/usr/bin/steam"), "steam"},

    // Matches by the process's systemd unit.
    {"GNOME's", classed("x", "y"), inUnit("app-gnome-sublime_text-88.scope"), "sublime_text"},
    {"KDE's", classed("x", "y"), inUnit("app-org.kde.dolphin@5f1e.service"), "org.kde.dolphin"},
    {"a unit with an escaped dash", classed("x", "y"), inUnit("app-gnome-virt\\x2dmanager-1.scope"),
     "virt-manager"},
    {"a unit with an unescaped dash", classed("x", "y"), inUnit("app-gnome-virt-manager-1.scope"),
     "virt-manager"},
    {"a unit started by D-Bus", classed("x", "y"), inUnit("dbus-:1.2-org.gnome.Nautilus@0.service"),
     "org.gnome.Nautilus"},
    {"the unit of a terminal in which the command runs", classed("my-tool", "My-tool"),
     typedInUnit("app-gnome-xterm-1.scope"), ""},
    {"the same command as the unit's own process", classed("my-tool", "My-tool"),
     typedInUnit("app-gnome-xterm-4242.scope"), "xterm"},
    {"the unit of a terminal's own window", classed("xterm", "XTerm"),
     inUnit("app-gnome-xterm-1.scope"), "xterm"},
    {"a unit of no application", classed("x", "y"), inUnit("session-3.scope"), ""},

    // Matches by the launch variables in the process's environment.
    {"launched from an entry", classed("x", "y"),
     launchedFrom("/usr/share/applications/jetbrains-idea.desktop"), "jetbrains-idea"},
    {"launched from an entry that is not installed", classed("x", "y"),
     launchedFrom("/tmp/a.desktop"), ""},

    // Matches by the process's program.
    {"its executable", classed("gimp-2.10", "Gimp-2.10"), running("/usr/bin/gimp-2.10"), "gimp"},
    {"a script", classed("toplevel", "Toplevel"),
     running("/usr/bin/python3.11", {"/usr/bin/python3", "/usr/bin/virt-manager", "-c"}),
     "virt-manager"},
    {"a Java archive", classed("sun-awt-X11", "net-sf-freecol"),
     running("/usr/lib/jvm/bin/java", {"java", "-Xmx512M", "-jar", "/games/FreeCol.jar"}),
     "freecol"},
    {"a path with spaces", classed("x", "y"), running("/opt/idea IC/bin/idea"), "jetbrains-idea"},
    {"a bare interpreter", classed("x", "y"), running("/usr/bin/python3", {"python3"}), ""},
    {"an entry for terminals has no window", classed("x", "y"), running("/usr/bin/vim"), ""},
    {"no evidence", classed("my-tool", "My-tool"), running("/home/anna/bin/my-tool"), ""},

    {"no properties", {}, {}, ""},
};

TEST(ApplicationMatcher, FindsTheEntryOfAWindow) {
    const auto entries = readEntries();
    for (const Row& row : rows) {
        OneProcess process;
        process.facts = row.process;
        const DesktopEntry* const entry = ApplicationMatcher(entries, process).entryOf(row.window);
        EXPECT_EQ(entry != nullptr ? entry->identifier : "", row.entry) << row.what;
    }
}

TEST(ApplicationMatcher, DescribesAWindowWithoutAnEntryByItsIdentifiers) {
    struct Own {
        const char* what;
        WindowIdentity window;
        ProcessFacts process;
        Application expected;
    };
    const Own own[] = {
        {"its app id", appID("my-tool"), {}, {"my-tool", "My Tool"}},
        {"a reverse-DNS app id", appID("org.example.Viewer"), {}, {"org.example.Viewer", "Viewer"}},
        {"its class rather than its instance",
         classed("instance", "my-class"),
         {},
         {"my-class", "My Class"}},
        {"its instance", classed("only-instance", ""), {}, {"only-instance", "Only Instance"}},
        {"its program",
         classed("", ""),
         running("/opt/x/my-tool", {"my-tool"}),
         {"my-tool", "My Tool"}},
        {"its script",
         classed("", ""),
         running("/usr/bin/python3", {"python3", "/x/tool.py"}),
         {"tool.py", "Tool.py"}},
        {"its executable", classed("", ""), running("/opt/x/my-tool"), {"my-tool", "My Tool"}},
        {"a process that has exited", classed("", ""), {}, {}},
        {"nothing at all", {}, {}, {}},
        {"only spaces", appID("  "), {}, {}},
    };
    const std::vector<DesktopEntry> none;
    for (const Own& row : own) {
        OneProcess process;
        process.facts = row.process;
        EXPECT_EQ(ApplicationMatcher(none, process).describe(row.window), row.expected) << row.what;
    }
}

} // namespace
} // namespace glidemap
