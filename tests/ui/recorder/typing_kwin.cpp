#include "typing_kwin.h"

#include <gtest/gtest.h>
#include <kwin-fake-input-client-protocol.h>
#include <wayland-client.h>

#include <string_view>

namespace glidemap::test {

namespace {

constexpr std::uint32_t versionWithKeys = 4;

} // namespace

class TypingKWin::Keyboard {
public:
    explicit Keyboard(const Environment& desktop)
        : display(wl_display_connect(
              (desktop.at("XDG_RUNTIME_DIR") + "/" + desktop.at("WAYLAND_DISPLAY")).c_str())) {
        static constexpr wl_registry_listener listener = {
            .global =
                [](void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                   std::uint32_t) {
                    if (std::string_view(interface) == org_kde_kwin_fake_input_interface.name) {
                        static_cast<Keyboard*>(data)->input = static_cast<org_kde_kwin_fake_input*>(
                            wl_registry_bind(registry, name, &org_kde_kwin_fake_input_interface,
                                             versionWithKeys));
                    }
                },
            .global_remove = [](void*, wl_registry*, std::uint32_t) {},
        };
        wl_registry_add_listener(wl_display_get_registry(display), &listener, this);
        wl_display_roundtrip(display);
        if (input == nullptr) {
            ADD_FAILURE() << "KWin does not let this program emulate a keyboard";
            return;
        }
        org_kde_kwin_fake_input_authenticate(input, "test", "typing");
        wl_display_roundtrip(display);
    }

    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    ~Keyboard() { wl_display_disconnect(display); }

    void key(std::uint16_t kernelCode, bool down) {
        if (input != nullptr) {
            org_kde_kwin_fake_input_keyboard_key(input, kernelCode,
                                                 down ? WL_KEYBOARD_KEY_STATE_PRESSED
                                                      : WL_KEYBOARD_KEY_STATE_RELEASED);
            wl_display_roundtrip(display);
        }
    }

private:
    wl_display* display;
    org_kde_kwin_fake_input* input = nullptr;
};

TypingKWin::TypingKWin() {
    kwin.installThisProgram("org_kde_kwin_fake_input");
    kwin.start();
    kwin.waitUntilReady();
    keyboard = std::make_unique<Keyboard>(kwin.environment());
}

TypingKWin::~TypingKWin() = default;

void TypingKWin::key(std::uint16_t kernelCode, bool down) {
    keyboard->key(kernelCode, down);
}

} // namespace glidemap::test
