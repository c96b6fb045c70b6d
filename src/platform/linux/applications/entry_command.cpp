#include "platform/linux/applications/entry_command.h"

#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <array>
#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

std::string quoted(const std::string& text) {
    return *takeText(g_shell_quote(text.c_str()));
}

std::string quotedFileOf(const std::string& url) {
    const auto path = takeText(g_filename_from_uri(url.c_str(), nullptr, nullptr));
    return path ? quoted(*path) : "";
}

// Returns the text that replaces a field code. Deprecated field codes are replaced by nothing.
std::string expanded(char code, const FieldValues& values) {
    switch (code) {
    case '%':
        return "%";
    case 'u':
    case 'U':
        return values.url.empty() ? "" : quoted(values.url);
    case 'f':
    case 'F':
        return values.url.empty() ? "" : quotedFileOf(values.url);
    case 'i':
        return values.icon.empty() ? "" : "--icon " + quoted(values.icon);
    case 'c':
        return values.name.empty() ? "" : quoted(values.name);
    case 'k':
        return values.path.empty() ? "" : quoted(values.path);
    default:
        return "";
    }
}

struct Terminal {
    const char* program;
    const char* option; // the option before the command; null if none is needed
};

// Ordered by preference. xdg-terminal-exec runs the terminal that the user has chosen. The
// terminals of desktops follow, then others.
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

std::vector<std::string> splitLikeAShell(const std::string& line, std::string& problem) {
    char** words = nullptr;
    GError* failure = nullptr;
    if (g_shell_parse_argv(line.c_str(), nullptr, &words, &failure) == FALSE) {
        problem = GlibOwner<GError>(failure)->message;
    }
    return takeWords(words);
}

} // namespace

std::string withFieldCodes(const std::string& exec, const FieldValues& values) {
    std::string line;
    for (std::size_t at = 0; at < exec.size(); ++at) {
        if (exec[at] == '%' && at + 1 < exec.size()) {
            line += expanded(exec[++at], values);
        } else {
            line.push_back(exec[at]);
        }
    }
    return line;
}

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
    EntryCommand command;
    const FieldValues values{
        textOrEmpty(g_app_info_get_name(G_APP_INFO(entry))),
        takeText(g_desktop_app_info_get_locale_string(entry, G_KEY_FILE_DESKTOP_KEY_ICON))
            .value_or(""),
        textOrEmpty(g_desktop_app_info_get_filename(entry)), url};
    const std::string exec = textOrEmpty(g_app_info_get_commandline(G_APP_INFO(entry)));
    command.words = splitLikeAShell(withFieldCodes(exec, values), command.problem);
    if (command.words.empty() ||
        g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_TERMINAL) == FALSE) {
        return command;
    }
    std::vector<std::string> whole = terminalPrefix();
    if (whole.empty()) {
        return {{}, "no terminal is installed to run it in"};
    }
    whole.insert(whole.end(), command.words.begin(), command.words.end());
    return {std::move(whole), ""};
}

} // namespace glidemap
