#include "typing_sway.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace glidemap::test {

namespace {

constexpr std::uint32_t keyCodeOffset = 8;

// Returns a memory file with the text and its terminating null character. The protocol requires
// this form for keymaps.
int fileWith(const char* text, std::size_t size) {
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    EXPECT_EQ(write(file, text, size), static_cast<ssize_t>(size));
    return file;
}

} // namespace

class TypingSway::Keyboard {
public:
    explicit Keyboard(const Environment& desktop) {
        connect(desktop);
        if (seat == nullptr || manager == nullptr) {
            ADD_FAILURE() << "the compositor has no virtual keyboard protocol";
            return;
        }
        device = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager, seat);
        uploadKeymap();
        wl_display_roundtrip(display);
    }

    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    ~Keyboard() {
        wl_display_disconnect(display);
        xkb_state_unref(state);
        xkb_keymap_unref(keymap);
        xkb_context_unref(context);
    }

    void key(std::uint16_t kernelCode, bool down) {
        zwp_virtual_keyboard_v1_key(device, ++time, kernelCode,
                                    down ? WL_KEYBOARD_KEY_STATE_PRESSED
                                         : WL_KEYBOARD_KEY_STATE_RELEASED);
        // The compositor calculates the modifiers of a real keyboard itself, but a client must send
        // those of a virtual keyboard.
        xkb_state_update_key(state, kernelCode + keyCodeOffset, down ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(
            device, xkb_state_serialize_mods(state, XKB_STATE_MODS_DEPRESSED),
            xkb_state_serialize_mods(state, XKB_STATE_MODS_LATCHED),
            xkb_state_serialize_mods(state, XKB_STATE_MODS_LOCKED), 0);
        wl_display_roundtrip(display);
    }

private:
    void connect(const Environment& desktop) {
        const std::string socket =
            desktop.at("XDG_RUNTIME_DIR") + "/" + desktop.at("WAYLAND_DISPLAY");
        display = wl_display_connect(socket.c_str());
        static constexpr wl_registry_listener listener = {
            .global =
                [](void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                   std::uint32_t) {
                    static_cast<Keyboard*>(data)->bind(registry, name, interface);
                },
            .global_remove = [](void*, wl_registry*, std::uint32_t) {},
        };
        wl_registry_add_listener(wl_display_get_registry(display), &listener, this);
        wl_display_roundtrip(display);
    }

    void bind(wl_registry* registry, std::uint32_t name, std::string_view interface) {
        if (interface == wl_seat_interface.name) {
            seat = static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
        } else if (interface == zwp_virtual_keyboard_manager_v1_interface.name) {
            manager = static_cast<zwp_virtual_keyboard_manager_v1*>(
                wl_registry_bind(registry, name, &zwp_virtual_keyboard_manager_v1_interface, 1));
        }
    }

    void uploadKeymap() {
        const xkb_rule_names names = {"evdev", "pc105", "us", nullptr, nullptr};
        keymap = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
        state = xkb_state_new(keymap);
        char* const text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
        const std::size_t size = std::strlen(text) + 1;
        const int file = fileWith(text, size);
        zwp_virtual_keyboard_v1_keymap(device, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                       static_cast<std::uint32_t>(size));
        wl_display_flush(display);
        close(file);
        std::free(text);
    }

    xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    xkb_keymap* keymap = nullptr;
    xkb_state* state = nullptr;
    wl_display* display = nullptr;
    wl_seat* seat = nullptr;
    zwp_virtual_keyboard_manager_v1* manager = nullptr;
    zwp_virtual_keyboard_v1* device = nullptr;
    std::uint32_t time = 0;
};

TypingSway::TypingSway() : keyboard(std::make_unique<Keyboard>(sway.environment())) {
    // The tests' configuration of sway has no key bindings, so the desktop's keys are bound here.
    for (const char* const binding : {"Mod1+F4 kill", "Mod4+l workspace 2"}) {
        sway.command(std::string("bindsym ") + binding);
    }
}

TypingSway::~TypingSway() = default;

Environment TypingSway::environment() const {
    return forToolkit(sway.environment());
}

void TypingSway::key(std::uint16_t kernelCode, bool down) {
    keyboard->key(kernelCode, down);
}

} // namespace glidemap::test
