#include "platform/linux/applications/desktop_entries.h"

#include "platform/linux/desktop/glib_owner.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <chrono>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

// Installing a package changes many entries in a row. They are read again when this time has passed
// since the first change.
constexpr std::chrono::milliseconds settlingTime{300};

std::string withoutSuffix(std::string identifier) {
    constexpr std::string_view suffix = ".desktop";
    if (identifier.ends_with(suffix)) {
        identifier.resize(identifier.size() - suffix.size());
    }
    return identifier;
}

DesktopEntry describe(GDesktopAppInfo* info) {
    GAppInfo* const application = G_APP_INFO(info);
    DesktopEntry entry;
    entry.identifier = withoutSuffix(textOrEmpty(g_app_info_get_id(application)));
    entry.name = textOrEmpty(g_app_info_get_name(application));
    entry.path = textOrEmpty(g_desktop_app_info_get_filename(info));
    entry.windowClass = textOrEmpty(g_desktop_app_info_get_startup_wm_class(info));
    entry.visible = g_app_info_should_show(application) != FALSE;
    entry.inTerminal =
        g_desktop_app_info_get_boolean(info, G_KEY_FILE_DESKTOP_KEY_TERMINAL) != FALSE;
    readExec(
        entry,
        takeText(g_desktop_app_info_get_string(info, G_KEY_FILE_DESKTOP_KEY_EXEC)).value_or(""));
    return entry;
}

std::vector<DesktopEntry> readAll() {
    std::vector<DesktopEntry> entries;
    const GlibOwner<GList> found(g_app_info_get_all());
    for (const GList* one = found.get(); one != nullptr; one = one->next) {
        if (G_IS_DESKTOP_APP_INFO(one->data)) {
            entries.push_back(describe(G_DESKTOP_APP_INFO(one->data)));
        }
    }
    return entries;
}

} // namespace

struct DesktopEntries::State {
    DesktopThread& thread;
    std::function<void()> changed;
    // Must exist before the entries are first read. Otherwise GIO would not report later changes.
    GlibOwner<GAppInfoMonitor> monitor{g_app_info_monitor_get()};
    gulong subscription = 0;
    DesktopThread::Watch settling;
    std::vector<DesktopEntry> entries;

    State(DesktopThread& desktop, std::function<void()> notify)
        : thread(desktop), changed(std::move(notify)) {
        subscription = g_signal_connect(monitor.get(), "changed", G_CALLBACK(reported), this);
        entries = readAll();
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    ~State() { g_signal_handler_disconnect(monitor.get(), subscription); }

    // Called at most once after each reading, because GIO reports no further changes until the
    // entries are read again.
    static void reported(GAppInfoMonitor* /*monitor*/, gpointer self) {
        auto* const state = static_cast<State*>(self);
        state->settling = state->thread.after(settlingTime, [state] {
            state->entries = readAll();
            state->changed();
        });
    }
};

DesktopEntries::DesktopEntries(DesktopThread& desktop, std::function<void()> changed)
    : state(std::make_unique<State>(desktop, std::move(changed))) {}

DesktopEntries::~DesktopEntries() = default;

const std::vector<DesktopEntry>& DesktopEntries::all() const {
    return state->entries;
}

} // namespace glidemap
