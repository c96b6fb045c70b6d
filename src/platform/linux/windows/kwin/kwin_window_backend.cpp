#include "platform/linux/windows/kwin/kwin_window_backend.h"

#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/windows/kwin/kwin_activation.h"
#include "platform/linux/windows/kwin/kwin_launch_tokens.h"
#include "platform/linux/windows/kwin/kwin_script.h"
#include "platform/linux/windows/kwin/kwin_script_loader.h"
#include "platform/linux/windows/reported_windows.h"

#include <gio/gio.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* kwinName = "org.kde.KWin";

constexpr const char* reportDescription = R"(<node>
    <interface name="org.glidemap.KWinWindows">
        <method name="Report"><arg type="s" direction="in"/></method>
    </interface>
</node>)";

} // namespace

struct KWinWindowBackend::State {
    DesktopThread& thread;
    WindowListener* listener = nullptr;
    ReportedWindows reported;
    std::unique_ptr<DesktopBus> bus;
    std::unique_ptr<KWinScriptLoader> loader;     // exists while KWin is on the bus
    std::unique_ptr<KWinActivations> activations; // likewise
    std::unique_ptr<KWinLaunchTokens> tokens;     // likewise
    KWinReport latest;
    // The last use of each window, by its handle: the value of `uses` when the window became
    // active.
    std::map<std::string, std::uint64_t> lastUses;
    std::uint64_t uses = 0;

    explicit State(DesktopThread& runsOn) : thread(runsOn) {}

    void receive(const std::string& sender, const char* text);
    void noteUse();
    std::string chosenOf(const WindowChoice& isChosen) const;
    void endTokens() {
        if (tokens != nullptr) {
            tokens->abandonRequests();
            tokens.reset();
        }
    }
    void reportNone() {
        latest = {};
        lastUses.clear();
        reported.report(*listener, {}, std::nullopt);
    }
};

void KWinWindowBackend::State::receive(const std::string& sender, const char* text) {
    if (loader == nullptr || sender != loader->owner()) {
        return;
    }
    loader->reportReceived();
    if (std::optional<KWinReport> report = readKWinReport(text)) {
        latest = *std::move(report);
        noteUse();
        reported.report(*listener, latest.windows, latest.active);
    }
}

void KWinWindowBackend::State::noteUse() {
    std::erase_if(lastUses, [this](const auto& use) {
        return std::ranges::find(latest.handles, use.first) == latest.handles.end();
    });
    if (!latest.activeHandle.empty()) {
        lastUses[latest.activeHandle] = ++uses;
    }
}

// Returns the handle of the most recently used window among the selected windows, or an empty
// string if no window is selected.
std::string KWinWindowBackend::State::chosenOf(const WindowChoice& isChosen) const {
    std::string best;
    std::uint64_t lastUse = 0;
    for (std::size_t at = 0; at < latest.windows.size(); ++at) {
        const auto use = lastUses.find(latest.handles[at]);
        const std::uint64_t used = use != lastUses.end() ? use->second : 0;
        if (used >= lastUse && isChosen(latest.windows[at])) {
            best = latest.handles[at];
            lastUse = used;
        }
    }
    return best;
}

KWinWindowBackend::KWinWindowBackend(DesktopThread& thread)
    : state(std::make_unique<State>(thread)) {}

KWinWindowBackend::~KWinWindowBackend() = default;

bool KWinWindowBackend::start(WindowListener& listener) {
    state->bus = DesktopBus::open();
    if (state->bus == nullptr || !(state->bus->isOwned(kwinName) || isCurrentDesktop("KDE"))) {
        state->bus.reset();
        return false;
    }
    state->listener = &listener;
    state->bus->serve(kwinReportPath, reportDescription,
                      [this](const std::string& sender, GVariant* arguments) {
                          const char* text = nullptr;
                          g_variant_get(arguments, "(&s)", &text);
                          state->receive(sender, text);
                      });
    state->bus->watchName(
        kwinName,
        [this](const std::string& owner) {
            state->loader = std::make_unique<KWinScriptLoader>(*state->bus, owner,
                                                               [this] { state->reportNone(); });
            state->activations =
                std::make_unique<KWinActivations>(state->thread, *state->bus, owner);
            state->endTokens();
            state->tokens = std::make_unique<KWinLaunchTokens>(state->thread);
        },
        [this] {
            state->loader.reset();
            state->activations.reset();
            state->endTokens();
            state->reportNone();
        });
    return true;
}

void KWinWindowBackend::bringForward(const WindowChoice& isChosen,
                                     std::function<void()> otherwise) {
    const std::string handle = state->loader != nullptr ? state->chosenOf(isChosen) : "";
    if (handle.empty()) {
        otherwise();
        return;
    }
    state->activations->activate(handle, std::move(otherwise));
}

// KWin uses the token only for Wayland windows.
void KWinWindowBackend::requestToken(const LaunchedApplication& application,
                                     std::function<void(const LaunchToken&)> then) {
    if (state->tokens == nullptr) {
        then({});
        return;
    }
    state->tokens->requestToken(application.identifier,
                                [receive = std::move(then)](const std::string& token) {
                                    receive({"", token, {}});
                                });
}

} // namespace glidemap
