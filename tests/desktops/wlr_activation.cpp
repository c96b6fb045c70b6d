#include "desktops/wlr_activation.h"

#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace glidemap::test {

namespace {

using Manager = zwlr_foreign_toplevel_manager_v1;
using Toplevel = zwlr_foreign_toplevel_handle_v1;

struct Search {
    std::string wanted;
    Manager* manager = nullptr;
    wl_seat* seat = nullptr;
    Toplevel* found = nullptr;
};

const zwlr_foreign_toplevel_handle_v1_listener toplevelListener = {
    .title = [](void*, Toplevel*, const char*) {},
    .app_id =
        [](void* data, Toplevel* toplevel, const char* appID) {
            auto& search = *static_cast<Search*>(data);
            if (search.wanted == appID) {
                search.found = toplevel;
            }
        },
    .output_enter = [](void*, Toplevel*, wl_output*) {},
    .output_leave = [](void*, Toplevel*, wl_output*) {},
    .state = [](void*, Toplevel*, wl_array*) {},
    .done = [](void*, Toplevel*) {},
    .closed = [](void*, Toplevel*) {},
    .parent = [](void*, Toplevel*, Toplevel*) {},
};

const zwlr_foreign_toplevel_manager_v1_listener managerListener = {
    .toplevel =
        [](void* data, Manager*, Toplevel* toplevel) {
            zwlr_foreign_toplevel_handle_v1_add_listener(toplevel, &toplevelListener, data);
        },
    .finished = [](void*, Manager*) {},
};

const wl_registry_listener registryListener = {
    .global =
        [](void* data, wl_registry* registry, std::uint32_t name, const char* offered,
           std::uint32_t) {
            auto& search = *static_cast<Search*>(data);
            const std::string_view interface = offered;
            if (interface == wl_seat_interface.name) {
                search.seat =
                    static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
            } else if (interface == zwlr_foreign_toplevel_manager_v1_interface.name) {
                search.manager = static_cast<Manager*>(wl_registry_bind(
                    registry, name, &zwlr_foreign_toplevel_manager_v1_interface, 3));
                zwlr_foreign_toplevel_manager_v1_add_listener(search.manager, &managerListener,
                                                              data);
            }
        },
    .global_remove = [](void*, wl_registry*, std::uint32_t) {},
};

} // namespace

namespace {

template <typename Request>
void onWindowOf(const Environment& desktop, const std::string& appID, Request request) {
    const auto socket =
        std::filesystem::path(desktop.at("XDG_RUNTIME_DIR")) / desktop.at("WAYLAND_DISPLAY");
    wl_display* const display = wl_display_connect(socket.c_str());
    ASSERT_NE(display, nullptr) << socket;
    Search search{.wanted = appID};
    wl_registry_add_listener(wl_display_get_registry(display), &registryListener, &search);
    wl_display_roundtrip(display); // receives the globals
    wl_display_roundtrip(display); // receives the windows
    EXPECT_NE(search.found, nullptr) << "no window of " << appID;
    if (search.found != nullptr && search.seat != nullptr) {
        request(search.found, search.seat);
        wl_display_roundtrip(display);
    }
    wl_display_disconnect(display);
}

} // namespace

void activateOnWlroots(const Environment& desktop, const std::string& appID) {
    onWindowOf(desktop, appID, zwlr_foreign_toplevel_handle_v1_activate);
}

void minimizeOnWlroots(const Environment& desktop, const std::string& appID) {
    onWindowOf(desktop, appID, [](Toplevel* window, wl_seat*) {
        zwlr_foreign_toplevel_handle_v1_set_minimized(window);
    });
}

} // namespace glidemap::test
