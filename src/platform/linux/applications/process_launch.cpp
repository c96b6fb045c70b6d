#include "platform/linux/applications/process_launch.h"

#include "platform/linux/applications/application_scope.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <unistd.h>

#include <csignal>

namespace glidemap {

namespace {

// Runs between fork and exec, so it must not allocate or lock. GIO does the rest: it closes our
// descriptors and forks twice, so that init reaps the process.
void cutLoose(gpointer /*data*/) {
    setsid();
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

void started(GDesktopAppInfo* /*entry*/, GPid process, gpointer identifier) {
    moveIntoScope(*static_cast<std::string*>(identifier), process);
}

void launch(GDesktopAppInfo* entry, GList* urls, std::string identifier) {
    GAppLaunchContext* const context = g_app_launch_context_new();
    // These variables belong to the launch of this program.
    g_app_launch_context_unsetenv(context, "DESKTOP_STARTUP_ID");
    g_app_launch_context_unsetenv(context, "XDG_ACTIVATION_TOKEN");
    g_desktop_app_info_launch_uris_as_manager(entry, urls, context, G_SPAWN_SEARCH_PATH, cutLoose,
                                              nullptr, started, &identifier, nullptr);
    g_object_unref(context);
}

// A copy of the entry without D-Bus activation, so that GIO starts its Exec line.
GDesktopAppInfo* withoutActivation(GDesktopAppInfo* entry) {
    GKeyFile* const file = g_key_file_new();
    GDesktopAppInfo* plain = nullptr;
    if (g_key_file_load_from_file(file, g_desktop_app_info_get_filename(entry), G_KEY_FILE_NONE,
                                  nullptr) != FALSE) {
        g_key_file_set_boolean(file, G_KEY_FILE_DESKTOP_GROUP, "DBusActivatable", FALSE);
        plain = g_desktop_app_info_new_from_keyfile(file);
    }
    g_key_file_unref(file);
    return plain;
}

std::string identifierOf(GDesktopAppInfo* entry) {
    const char* const identifier = g_app_info_get_id(G_APP_INFO(entry));
    return identifier != nullptr ? identifier : "";
}

} // namespace

void startProcess(GDesktopAppInfo* entry) {
    if (g_desktop_app_info_get_boolean(entry, "DBusActivatable") == FALSE) {
        launch(entry, nullptr, identifierOf(entry));
        return;
    }
    if (GDesktopAppInfo* const plain = withoutActivation(entry)) {
        launch(plain, nullptr, identifierOf(entry));
        g_object_unref(plain);
    }
}

void openWith(GDesktopAppInfo* entry, const std::string& url) {
    GList* const urls = g_list_prepend(nullptr, const_cast<char*>(url.c_str()));
    launch(entry, urls, identifierOf(entry));
    g_list_free(urls);
}

} // namespace glidemap
