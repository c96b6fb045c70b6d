#include "platform/linux/applications/entry_command.h"

#include "platform/linux/desktop/exec_line.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <array>
#include <utility>

namespace glidemap {

namespace {

struct Terminal {
    const char* program;
    const char* option; // the option before the command; null if none is needed
};

// Ordered by preference. The first, xdg-terminal-exec, runs the terminal that the user has chosen.
constexpr std::array<Terminal, 18> terminals = {{{"xdg-terminal-exec", nullptr},
                                                 {"kgx", "-e"},
                                                 {"gnome-terminal", "--"},
                                                 {"mate-terminal", "-x"},
                                                 {"xfce4-terminal", "-x"},
                                                 {"tilix", "-e"},
                                                 {"konsole", "-e"},
                                                 {"nxterm", "-e"},
                                                 {"color-xterm", "-e"},
                                                 {"rxvt", "-e"},
                                                 {"dtterm", "-e"},
                                                 {"x-terminal-emulator", "-e"},
                                                 {"xterm", "-e"},
                                                 {"foot", nullptr},
                                                 {"alacritty", "-e"},
                                                 {"kitty", nullptr},
                                                 {"ghostty", "-e"},
                                                 {"qterminal", "-e"}}};

} // namespace

std::vector<std::string> terminalPrefix() {
    for (const Terminal& terminal : terminals) {
        const auto path = takeText(g_find_program_in_path(terminal.program));
        if (!path) {
            continue;
        }
        std::vector<std::string> words = {*path};
        if (terminal.option != nullptr) {
            words.emplace_back(terminal.option);
        }
        return words;
    }
    return {};
}

EntryCommand commandOf(GDesktopAppInfo* entry, const std::string& url) {
    const FieldValues values{
        textOrEmpty(g_app_info_get_name(G_APP_INFO(entry))),
        takeText(g_desktop_app_info_get_locale_string(entry, G_KEY_FILE_DESKTOP_KEY_ICON))
            .value_or(""),
        textOrEmpty(g_desktop_app_info_get_filename(entry)), url};
    const std::string exec = textOrEmpty(g_app_info_get_commandline(G_APP_INFO(entry)));
    const SplitLine command = splitLikeAShell(withFieldCodes(exec, values));
    if (command.words.empty() ||
        g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_TERMINAL) == FALSE) {
        return {command.words, command.error};
    }
    std::vector<std::string> whole = terminalPrefix();
    if (whole.empty()) {
        return {{}, "no terminal is installed to run it in"};
    }
    whole.insert(whole.end(), command.words.begin(), command.words.end());
    return {std::move(whole), ""};
}

} // namespace glidemap
