#include "platform/linux/applications/desktop_entries.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <string_view>
#include <utility>

namespace glidemap {

namespace {

// Installing a package changes many entries one after the other. They are read once it has come to
// this, rather than again and again.
constexpr guint settlingTime = 300; // milliseconds

std::string orEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

std::string valueOf(GDesktopAppInfo* info, const char* key) {
    char* const value = g_desktop_app_info_get_string(info, key);
    std::string text = orEmpty(value);
    g_free(value);
    return text;
}

std::string withoutSuffix(std::string identifier) {
    constexpr std::string_view suffix = ".desktop";
    if (identifier.ends_with(suffix))
        identifier.resize(identifier.size() - suffix.size());
    return identifier;
}

DesktopEntry describe(GDesktopAppInfo* info) {
    GAppInfo* const application = G_APP_INFO(info);
    DesktopEntry entry;
    entry.identifier = withoutSuffix(orEmpty(g_app_info_get_id(application)));
    entry.name = orEmpty(g_app_info_get_name(application));
    entry.path = orEmpty(g_desktop_app_info_get_filename(info));
    entry.windowClass = orEmpty(g_desktop_app_info_get_startup_wm_class(info));
    entry.visible = g_app_info_should_show(application) != FALSE;
    entry.inTerminal =
        g_desktop_app_info_get_boolean(info, G_KEY_FILE_DESKTOP_KEY_TERMINAL) != FALSE;
    readExec(entry, valueOf(info, G_KEY_FILE_DESKTOP_KEY_EXEC));
    return entry;
}

std::vector<DesktopEntry> readAll() {
    std::vector<DesktopEntry> entries;
    GList* const found = g_app_info_get_all();
    for (GList* one = found; one != nullptr; one = one->next) {
        if (G_IS_DESKTOP_APP_INFO(one->data))
            entries.push_back(describe(G_DESKTOP_APP_INFO(one->data)));
    }
    g_list_free_full(found, g_object_unref);
    return entries;
}

} // namespace

struct DesktopEntries::State {
    std::function<void()> changed;
    // Held before the first reading: it reports only what changes after one.
    GAppInfoMonitor* monitor = g_app_info_monitor_get();
    gulong subscription = 0;
    GSource* settling = nullptr;
    std::vector<DesktopEntry> entries;

    ~State() {
        stopSettling();
        g_signal_handler_disconnect(monitor, subscription);
        g_object_unref(monitor);
    }

    void stopSettling() {
        if (settling == nullptr)
            return;
        g_source_destroy(settling);
        g_source_unref(settling);
        settling = nullptr;
    }

    void settle() {
        if (settling != nullptr)
            return;
        settling = g_timeout_source_new(settlingTime);
        g_source_set_callback(settling, readAgain, this, nullptr);
        g_source_attach(settling, g_main_context_get_thread_default());
    }

    static gboolean readAgain(gpointer self) {
        auto* const state = static_cast<State*>(self);
        state->stopSettling();
        state->entries = readAll();
        state->changed();
        return G_SOURCE_REMOVE;
    }

    static void reported(GAppInfoMonitor* /*monitor*/, gpointer self) {
        static_cast<State*>(self)->settle();
    }
};

DesktopEntries::DesktopEntries(std::function<void()> changed) : state(std::make_unique<State>()) {
    state->changed = std::move(changed);
    state->subscription =
        g_signal_connect(state->monitor, "changed", G_CALLBACK(State::reported), state.get());
    state->entries = readAll();
}

DesktopEntries::~DesktopEntries() = default;

const std::vector<DesktopEntry>& DesktopEntries::all() const {
    return state->entries;
}

} // namespace glidemap
