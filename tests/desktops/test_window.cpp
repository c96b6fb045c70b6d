// glidemap-test-window APP_ID TITLE: one small grey window on a Wayland desktop.
//
// The program prints "shown" when its window is on the screen. Like toolkits, it uses a launcher's
// activation token. A line "activate TOKEN" on standard input activates the window with the token,
// and the program then prints "activated". Each other line becomes the window's title, and the
// program then prints "titled". The end of the input ends the program.

#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>
#include <xdg-activation-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace {

constexpr std::int32_t side = 64;
constexpr std::int32_t bytesPerPixel = 4;
constexpr std::int32_t size = side * side * bytesPerPixel;

wl_compositor* compositor = nullptr;
wl_shm* memory = nullptr;
xdg_wm_base* shell = nullptr;
xdg_activation_v1* activation = nullptr;
wl_surface* surface = nullptr;
xdg_toplevel* toplevel = nullptr;
bool shown = false;

[[noreturn]] void fail(const char* what) {
    std::cerr << "glidemap-test-window: " << what << "\n";
    std::exit(1);
}

const xdg_wm_base_listener shellListener = {
    .ping = [](void*, xdg_wm_base* base, std::uint32_t serial) { xdg_wm_base_pong(base, serial); },
};

const wl_registry_listener registryListener = {
    .global =
        [](void*, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
            const auto bind = [&](const wl_interface& wanted) {
                return wl_registry_bind(registry, name, &wanted, 1);
            };
            const std::string_view offered = interface;
            if (offered == wl_compositor_interface.name) {
                compositor = static_cast<wl_compositor*>(bind(wl_compositor_interface));
            } else if (offered == wl_shm_interface.name) {
                memory = static_cast<wl_shm*>(bind(wl_shm_interface));
            } else if (offered == xdg_activation_v1_interface.name) {
                activation = static_cast<xdg_activation_v1*>(bind(xdg_activation_v1_interface));
            } else if (offered == xdg_wm_base_interface.name) {
                shell = static_cast<xdg_wm_base*>(bind(xdg_wm_base_interface));
                xdg_wm_base_add_listener(shell, &shellListener, nullptr);
            }
        },
    .global_remove = [](void*, wl_registry*, std::uint32_t) {},
};

wl_buffer* makePicture() {
    const int file = memfd_create("picture", MFD_CLOEXEC);
    if (file < 0 || ftruncate(file, size) != 0) {
        fail("no memory for a picture");
    }
    wl_shm_pool* const pool = wl_shm_create_pool(memory, file, size);
    wl_buffer* const picture = wl_shm_pool_create_buffer(pool, 0, side, side, side * bytesPerPixel,
                                                         WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    close(file);
    return picture;
}

const xdg_surface_listener surfaceListener = {
    .configure =
        [](void*, xdg_surface* configured, std::uint32_t serial) {
            xdg_surface_ack_configure(configured, serial);
            if (!shown) {
                shown = true;
                wl_surface_attach(surface, makePicture(), 0, 0);
            }
            wl_surface_commit(surface);
        },
};

const xdg_toplevel_listener toplevelListener = {
    .configure = [](void*, xdg_toplevel*, std::int32_t, std::int32_t, wl_array*) {},
    .close = [](void*, xdg_toplevel*) { std::exit(0); },
    .configure_bounds = nullptr,
    .wm_capabilities = nullptr,
};

void say(const char* what) {
    std::cout << what << std::endl;
}

void show(wl_display* display, const char* appID, const char* title) {
    wl_registry_add_listener(wl_display_get_registry(display), &registryListener, nullptr);
    wl_display_roundtrip(display);
    if (compositor == nullptr || memory == nullptr || shell == nullptr) {
        fail("the desktop offers no windows");
    }
    surface = wl_compositor_create_surface(compositor);
    xdg_surface* const role = xdg_wm_base_get_xdg_surface(shell, surface);
    xdg_surface_add_listener(role, &surfaceListener, nullptr);
    toplevel = xdg_surface_get_toplevel(role);
    xdg_toplevel_add_listener(toplevel, &toplevelListener, nullptr);
    xdg_toplevel_set_app_id(toplevel, appID);
    xdg_toplevel_set_title(toplevel, title);
    wl_surface_commit(surface);
    while (!shown) {
        if (wl_display_dispatch(display) < 0) {
            fail("the connection to the desktop is lost");
        }
    }
    const char* const token = std::getenv("XDG_ACTIVATION_TOKEN");
    if (activation != nullptr && token != nullptr) {
        xdg_activation_v1_activate(activation, token, surface);
    }
    wl_display_roundtrip(display);
    say("shown");
}

constexpr std::string_view activating = "activate ";

void obey(const std::string& line) {
    if (line.starts_with(activating)) {
        if (activation != nullptr) {
            xdg_activation_v1_activate(activation, line.c_str() + activating.size(), surface);
        }
    } else {
        xdg_toplevel_set_title(toplevel, line.c_str());
    }
}

// Returns false at the end of the input.
bool obeyInput(wl_display* display) {
    static std::string unread;
    std::array<char, 1024> buffer{};
    const ssize_t length = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (length <= 0) {
        return false;
    }
    unread.append(buffer.data(), static_cast<std::size_t>(length));
    for (std::size_t end = 0; (end = unread.find('\n')) != std::string::npos;
         unread.erase(0, end + 1)) {
        const std::string line = unread.substr(0, end);
        obey(line);
        wl_display_roundtrip(display);
        say(line.starts_with(activating) ? "activated" : "titled");
    }
    return true;
}

void serve(wl_display* display) {
    for (;;) {
        wl_display_flush(display);
        std::array<pollfd, 2> sources{
            {{STDIN_FILENO, POLLIN, 0}, {wl_display_get_fd(display), POLLIN, 0}}};
        if (poll(sources.data(), sources.size(), -1) < 0 && errno != EINTR) {
            fail("cannot wait");
        }
        if (sources[0].revents != 0 && !obeyInput(display)) {
            return;
        }
        if (sources[1].revents != 0 && wl_display_dispatch(display) < 0) {
            fail("the connection to the desktop is lost");
        }
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        fail("usage: glidemap-test-window APP_ID TITLE");
    }
    wl_display* const display = wl_display_connect(nullptr);
    if (display == nullptr) {
        fail("no desktop");
    }
    show(display, arguments[1], arguments[2]);
    serve(display);
    wl_display_disconnect(display);
    std::_Exit(0); // exits without clean-up, as programs often do
}
