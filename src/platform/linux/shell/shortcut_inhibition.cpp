#include "platform/linux/shell/shortcut_inhibition.h"

#include <keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h>
#include <unistd.h>
#include <wayland-client-core.h>
#include <wayland-client-protocol.h>

#include <cstdint>
#include <string_view>

namespace glidemap {

namespace {

struct WrapperRelease {
    void operator()(void* wrapper) const { wl_proxy_wrapper_destroy(wrapper); }
};

// Wraps an object of the toolkit. Objects that are created through the wrapper belong to this
// class's event queue instead of the toolkit's.
template <typename Object>
using Wrapper = std::unique_ptr<Object, WrapperRelease>;

template <typename Object>
Wrapper<Object> wrapped(Object* object, wl_event_queue* queue) {
    Wrapper<Object> wrapper(static_cast<Object*>(wl_proxy_create_wrapper(object)));
    if (wrapper != nullptr) {
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper.get()), queue);
    }
    return wrapper;
}

void release(wl_keyboard* keyboard) {
    if (wl_keyboard_get_version(keyboard) >= WL_KEYBOARD_RELEASE_SINCE_VERSION) {
        wl_keyboard_release(keyboard);
    } else {
        wl_keyboard_destroy(keyboard);
    }
}

} // namespace

struct ShortcutInhibition::State {
    wl_display* display;
    wl_seat* seat;
    wl_event_queue* queue;
    wl_registry* registry = nullptr;
    zwp_keyboard_shortcuts_inhibit_manager_v1* manager = nullptr;
    wl_keyboard* keyboard = nullptr; // until it announces the focused surface
    zwp_keyboard_shortcuts_inhibitor_v1* inhibitor = nullptr;
    bool active = false;

    State(wl_display* connection, wl_seat* keyboardSeat)
        : display(connection), seat(keyboardSeat), queue(wl_display_create_queue(connection)) {
        if (const auto own = wrapped(display, queue)) {
            registry = wl_display_get_registry(own.get());
            wl_registry_add_listener(registry, &registryListener, this);
            wl_display_flush(display);
        }
    }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    ~State() {
        if (inhibitor != nullptr) {
            zwp_keyboard_shortcuts_inhibitor_v1_destroy(inhibitor);
        }
        releaseKeyboard();
        if (manager != nullptr) {
            zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(manager);
        }
        if (registry != nullptr) {
            wl_registry_destroy(registry);
        }
        wl_event_queue_destroy(queue);
        wl_display_flush(display);
    }

    void useManager(std::uint32_t name) {
        manager = static_cast<zwp_keyboard_shortcuts_inhibit_manager_v1*>(wl_registry_bind(
            registry, name, &zwp_keyboard_shortcuts_inhibit_manager_v1_interface, 1));
        if (const auto own = wrapped(seat, queue)) {
            keyboard = wl_seat_get_keyboard(own.get());
            wl_keyboard_add_listener(keyboard, &keyboardListener, this);
        }
    }

    void inhibitOn(wl_surface* surface) {
        inhibitor =
            zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(manager, surface, seat);
        zwp_keyboard_shortcuts_inhibitor_v1_add_listener(inhibitor, &inhibitorListener, this);
        releaseKeyboard(); // otherwise each key press would arrive twice
    }

    void releaseKeyboard() {
        if (keyboard != nullptr) {
            release(keyboard);
            keyboard = nullptr;
        }
    }

    static State& of(void* data) { return *static_cast<State*>(data); }

    static const wl_registry_listener registryListener;
    static const wl_keyboard_listener keyboardListener;
    static const zwp_keyboard_shortcuts_inhibitor_v1_listener inhibitorListener;
};

const wl_registry_listener ShortcutInhibition::State::registryListener = {
    .global =
        [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
            State& self = of(data);
            if (self.manager == nullptr &&
                std::string_view(interface) ==
                    zwp_keyboard_shortcuts_inhibit_manager_v1_interface.name) {
                self.useManager(name);
            }
        },
    .global_remove = [](void*, wl_registry*, std::uint32_t) {},
};

const wl_keyboard_listener ShortcutInhibition::State::keyboardListener = {
    .keymap = [](void*, wl_keyboard*, std::uint32_t, std::int32_t file,
                 std::uint32_t) { close(file); },
    .enter =
        [](void* data, wl_keyboard*, std::uint32_t, wl_surface* surface, wl_array*) {
            if (surface != nullptr) { // null if the toolkit has destroyed it in the meantime
                of(data).inhibitOn(surface);
            }
        },
    .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
    .key = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                    std::uint32_t) {},
    .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
};

const zwp_keyboard_shortcuts_inhibitor_v1_listener ShortcutInhibition::State::inhibitorListener = {
    .active = [](void* data, zwp_keyboard_shortcuts_inhibitor_v1*) { of(data).active = true; },
    .inactive = [](void* data, zwp_keyboard_shortcuts_inhibitor_v1*) { of(data).active = false; },
};

ShortcutInhibition::ShortcutInhibition(WaylandDisplay* display, WaylandSeat* seat)
    : state(std::make_unique<State>(display, seat)) {}

ShortcutInhibition::~ShortcutInhibition() = default;

void ShortcutInhibition::dispatchArrived() {
    if (wl_display_dispatch_queue_pending(state->display, state->queue) > 0) {
        wl_display_flush(state->display);
    }
}

bool ShortcutInhibition::isActive() const {
    return state->active;
}

} // namespace glidemap
