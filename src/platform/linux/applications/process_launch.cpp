#include "platform/linux/applications/process_launch.h"

#include "core/log.h"
#include "platform/linux/applications/command_line.h"
#include "platform/linux/applications/entry_command.h"
#include "platform/linux/desktop/application_scope.h"
#include "platform/linux/desktop/detached_process.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>
#include <vector>

namespace glidemap {

namespace {

// These variables describe the launch of this program, so launched programs must not inherit them.
constexpr std::array<std::string_view, 5> notInherited = {
    "JOURNAL_STREAM", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "GIO_LAUNCHED_DESKTOP_FILE",
    "GIO_LAUNCHED_DESKTOP_FILE_PID"};

bool isInherited(std::string_view variable) {
    const std::string_view name = variable.substr(0, variable.find('='));
    return std::ranges::find(notInherited, name) == notInherited.end();
}

std::vector<std::string> environmentFor(GDesktopAppInfo* entry, const LaunchToken& token) {
    std::vector<std::string> variables;
    for (char** one = environ; *one != nullptr; ++one) {
        if (isInherited(*one)) {
            variables.emplace_back(*one);
        }
    }
    if (const char* const file = g_desktop_app_info_get_filename(entry)) {
        variables.push_back(std::string("GIO_LAUNCHED_DESKTOP_FILE=") + file);
    }
    if (!token.startupID.empty()) {
        variables.push_back("DESKTOP_STARTUP_ID=" + token.startupID);
    }
    if (!token.activationToken.empty()) {
        variables.push_back("XDG_ACTIVATION_TOKEN=" + token.activationToken);
    }
    return variables;
}

// Whether the application completes startup notification. For other applications, the desktop would
// show a busy indicator until a time limit expires.
bool takesNotice(GDesktopAppInfo* entry) {
    return g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) != FALSE;
}

std::string folderOf(GDesktopAppInfo* entry) {
    return takeText(g_desktop_app_info_get_string(entry, G_KEY_FILE_DESKTOP_KEY_PATH)).value_or("");
}

} // namespace

void startProcess(GDesktopAppInfo* entry, const std::string& url, const LaunchToken& token) {
    const std::string identifier = textOrEmpty(g_app_info_get_id(G_APP_INFO(entry)));
    const EntryCommand command = commandOf(entry, url);
    if (command.words.empty()) {
        logLine("services", identifier, " was not started: ", command.problem);
        return;
    }
    const DetachedProcess started =
        startDetached({.words = command.words,
                       .environment = environmentFor(entry, token),
                       .folder = folderOf(entry),
                       .processVariable = "GIO_LAUNCHED_DESKTOP_FILE_PID"});
    if (started.error != 0) {
        logLine("services", identifier, " was not started: ", command.words.front(), ": ",
                std::generic_category().message(started.error));
        return;
    }
    if (token.begun && takesNotice(entry)) {
        token.begun();
    }
    moveIntoScope(identifier, started.identifier);
}

} // namespace glidemap
