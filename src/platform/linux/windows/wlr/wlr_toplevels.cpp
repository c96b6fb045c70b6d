#include "platform/linux/windows/wlr/wlr_toplevels.h"

#include <wayland-client-protocol.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <cstdint>
#include <list>
#include <span>
#include <string>
#include <string_view>

namespace glidemap {

namespace {

constexpr std::uint32_t newestKnownVersion = 3;

bool hasActivated(const wl_array& states) {
    const std::span all(static_cast<const std::uint32_t*>(states.data),
                        states.size / sizeof(std::uint32_t));
    return std::find(all.begin(), all.end(), ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) !=
           all.end();
}

} // namespace

struct WlrToplevels::State {
    struct Properties {
        std::string appID;
        std::string title;
        bool activated = false;
    };

    // A window must not move in memory, because the event listeners of its handle point to it.
    struct Window {
        State* owner;
        zwlr_foreign_toplevel_handle_v1* handle;
        Properties coming;
        std::optional<Properties> current; // nullopt before the first "done"
        // The value of `activations` when this window was last activated; 0 if never.
        std::uint64_t activation = 0;
    };

    wl_registry* registry;
    zwlr_foreign_toplevel_manager_v1* manager = nullptr;
    wl_seat* seat = nullptr; // the first seat of the compositor
    std::list<Window> windows;
    std::uint64_t activations = 0;

    explicit State(wl_display* display) : registry(wl_display_get_registry(display)) {
        wl_registry_add_listener(registry, &registryListener, this);
    }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    ~State() {
        endManager();
        if (seat != nullptr) {
            wl_seat_destroy(seat);
        }
        wl_registry_destroy(registry);
    }

    void endManager() {
        while (!windows.empty()) {
            remove(windows.front());
        }
        if (manager != nullptr) {
            zwlr_foreign_toplevel_manager_v1_destroy(manager);
            manager = nullptr;
        }
    }

    void remove(Window& window) {
        zwlr_foreign_toplevel_handle_v1_destroy(window.handle);
        windows.remove_if([&](const Window& other) { return &other == &window; });
    }

    void apply(Window& window) {
        const bool wasActivated = window.current && window.current->activated;
        window.current = window.coming;
        if (window.current->activated && !wasActivated) {
            window.activation = ++activations;
        }
    }

    static Window& windowOf(void* data) { return *static_cast<Window*>(data); }

    static const wl_registry_listener registryListener;
    static const zwlr_foreign_toplevel_manager_v1_listener managerListener;
    static const zwlr_foreign_toplevel_handle_v1_listener handleListener;
};

using Handle = zwlr_foreign_toplevel_handle_v1;

const wl_registry_listener WlrToplevels::State::registryListener = {
    .global =
        [](void* data, wl_registry* offering, std::uint32_t name, const char* interface,
           std::uint32_t version) {
            auto& self = *static_cast<State*>(data);
            const wl_interface& wanted = zwlr_foreign_toplevel_manager_v1_interface;
            if (self.seat == nullptr && std::string_view(interface) == wl_seat_interface.name) {
                self.seat =
                    static_cast<wl_seat*>(wl_registry_bind(offering, name, &wl_seat_interface, 1));
            }
            if (self.manager == nullptr && std::string_view(interface) == wanted.name) {
                self.manager = static_cast<zwlr_foreign_toplevel_manager_v1*>(wl_registry_bind(
                    offering, name, &wanted, std::min(version, newestKnownVersion)));
                zwlr_foreign_toplevel_manager_v1_add_listener(self.manager, &managerListener,
                                                              &self);
            }
        },
    .global_remove = [](void*, wl_registry*, std::uint32_t) {},
};

const zwlr_foreign_toplevel_manager_v1_listener WlrToplevels::State::managerListener = {
    .toplevel =
        [](void* data, zwlr_foreign_toplevel_manager_v1*, Handle* handle) {
            auto& self = *static_cast<State*>(data);
            self.windows.push_back({&self, handle, {}, std::nullopt, 0});
            zwlr_foreign_toplevel_handle_v1_add_listener(handle, &handleListener,
                                                         &self.windows.back());
        },
    .finished = [](void* data,
                   zwlr_foreign_toplevel_manager_v1*) { static_cast<State*>(data)->endManager(); },
};

const zwlr_foreign_toplevel_handle_v1_listener WlrToplevels::State::handleListener = {
    .title = [](void* data, Handle*, const char* title) { windowOf(data).coming.title = title; },
    .app_id = [](void* data, Handle*, const char* appID) { windowOf(data).coming.appID = appID; },
    .output_enter = [](void*, Handle*, wl_output*) {},
    .output_leave = [](void*, Handle*, wl_output*) {},
    .state = [](void* data, Handle*,
                wl_array* states) { windowOf(data).coming.activated = hasActivated(*states); },
    .done = [](void* data, Handle*) { windowOf(data).owner->apply(windowOf(data)); },
    .closed = [](void* data, Handle*) { windowOf(data).owner->remove(windowOf(data)); },
    .parent = [](void*, Handle*, Handle*) {},
};

WlrToplevels::WlrToplevels(WaylandDisplay* display) : state(std::make_unique<State>(display)) {}

WlrToplevels::~WlrToplevels() = default;

bool WlrToplevels::isOffered() const {
    return state->manager != nullptr;
}

namespace {

WindowIdentity identityOf(const auto& properties) {
    return {properties.appID, {}, properties.title, std::nullopt};
}

} // namespace

std::vector<WindowIdentity> WlrToplevels::windows() const {
    std::vector<WindowIdentity> all;
    for (const State::Window& window : state->windows) {
        if (window.current) {
            all.push_back(identityOf(*window.current));
        }
    }
    return all;
}

std::optional<WindowIdentity> WlrToplevels::active() const {
    const State::Window* latest = nullptr;
    for (const State::Window& window : state->windows) {
        if (window.current && window.current->activated &&
            (latest == nullptr || window.activation > latest->activation)) {
            latest = &window;
        }
    }
    return latest == nullptr ? std::nullopt : std::optional(identityOf(*latest->current));
}

bool WlrToplevels::bringForward(const WindowChoice& isChosen) {
    const State::Window* latest = nullptr;
    for (const State::Window& window : state->windows) {
        if (window.current && (latest == nullptr || window.activation >= latest->activation) &&
            isChosen(identityOf(*window.current))) {
            latest = &window;
        }
    }
    if (latest == nullptr || state->seat == nullptr) {
        return false;
    }
    zwlr_foreign_toplevel_handle_v1_unset_minimized(latest->handle);
    zwlr_foreign_toplevel_handle_v1_activate(latest->handle, state->seat);
    return true;
}

} // namespace glidemap
