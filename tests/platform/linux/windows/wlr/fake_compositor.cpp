#include "platform/linux/windows/wlr/fake_compositor.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <wayland-server.h>
#include <wlr-foreign-toplevel-management-unstable-v1-server-protocol.h>

namespace glidemap {

namespace {

const struct zwlr_foreign_toplevel_manager_v1_interface managerRequests = {
    .stop = [](wl_client*, wl_resource*) {},
};

// In these tests, the backend sends only destroy requests.
const struct zwlr_foreign_toplevel_handle_v1_interface handleRequests = [] {
    struct zwlr_foreign_toplevel_handle_v1_interface requests {};
    requests.destroy = [](wl_client*, wl_resource* handle) {
        wl_resource_destroy(handle);
    };
    return requests;
}();

void signal(int descriptor) {
    EXPECT_EQ(eventfd_write(descriptor, 1), 0);
}

void waitFor(int descriptor) {
    eventfd_t count = 0;
    EXPECT_EQ(eventfd_read(descriptor, &count), 0);
}

} // namespace

FakeCompositor::FakeCompositor(int version)
    : display(wl_display_create()), toSay(eventfd(0, EFD_CLOEXEC)), said(eventfd(0, EFD_CLOEXEC)) {
    EXPECT_EQ(wl_display_add_socket(display, socketName), 0);
    if (version > 0) {
        wl_global_create(display, &zwlr_foreign_toplevel_manager_v1_interface, version, this,
                         [](wl_client* client, void* self, std::uint32_t bound, std::uint32_t id) {
                             wl_resource* const made = wl_resource_create(
                                 client, &zwlr_foreign_toplevel_manager_v1_interface,
                                 static_cast<int>(bound), id);
                             wl_resource_set_implementation(made, &managerRequests, self, nullptr);
                             static_cast<FakeCompositor*>(self)->manager = made;
                         });
    }
    source = wl_event_loop_add_fd(
        wl_display_get_event_loop(display), toSay, WL_EVENT_READABLE,
        [](int, std::uint32_t, void* self) {
            static_cast<FakeCompositor*>(self)->attend();
            return 0;
        },
        this);
    thread = std::thread([this] { wl_display_run(display); });
}

FakeCompositor::~FakeCompositor() {
    stopping = true;
    say([] {});
    thread.join();
    wl_event_source_remove(source);
    wl_display_destroy_clients(display);
    wl_display_destroy(display);
    close(toSay);
    close(said);
}

void FakeCompositor::say(const std::function<void()>& what) {
    messages = &what;
    signal(toSay);
    waitFor(said);
}

void FakeCompositor::attend() {
    waitFor(toSay);
    (*messages)();
    wl_display_flush_clients(display);
    if (stopping) {
        wl_display_terminate(display);
    }
    signal(said);
}

void FakeCompositor::open(const char* appID, const char* text) {
    wl_resource* const window = wl_resource_create(wl_resource_get_client(manager),
                                                   &zwlr_foreign_toplevel_handle_v1_interface,
                                                   wl_resource_get_version(manager), 0);
    ++living;
    wl_resource_set_implementation(window, &handleRequests, this, [](wl_resource* gone) {
        --static_cast<FakeCompositor*>(wl_resource_get_user_data(gone))->living;
    });
    windows.push_back(window);
    zwlr_foreign_toplevel_manager_v1_send_toplevel(manager, window);
    if (appID != nullptr) {
        zwlr_foreign_toplevel_handle_v1_send_app_id(window, appID);
    }
    if (text != nullptr) {
        title(windows.size() - 1, text);
    }
}

void FakeCompositor::states(std::size_t window, const std::vector<std::uint32_t>& all) {
    wl_array array;
    wl_array_init(&array);
    for (const std::uint32_t state : all) {
        *static_cast<std::uint32_t*>(wl_array_add(&array, sizeof state)) = state;
    }
    zwlr_foreign_toplevel_handle_v1_send_state(windows.at(window), &array);
    wl_array_release(&array);
}

void FakeCompositor::title(std::size_t window, const char* text) {
    zwlr_foreign_toplevel_handle_v1_send_title(windows.at(window), text);
}

void FakeCompositor::done(std::size_t window) {
    zwlr_foreign_toplevel_handle_v1_send_done(windows.at(window));
}

void FakeCompositor::closed(std::size_t window) {
    zwlr_foreign_toplevel_handle_v1_send_closed(windows.at(window));
}

void FakeCompositor::finished() {
    zwlr_foreign_toplevel_manager_v1_send_finished(manager);
}

void FakeCompositor::breakOff() {
    wl_resource_post_error(manager, 0, "enough");
}

std::size_t FakeCompositor::handles() {
    std::size_t count = 0;
    say([&] { count = living; });
    return count;
}

} // namespace glidemap
