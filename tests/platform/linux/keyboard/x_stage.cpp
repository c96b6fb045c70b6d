#include "x_stage.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace glidemap {

namespace {

constexpr const char* serverProgram = "/usr/bin/Xvfb";
constexpr int patience = 120'000; // milliseconds, enough for a busy machine
constexpr int keyCodeOffset = 8;
constexpr std::uint16_t marker = KEY_F24; // no test types this key

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

// The server writes its display number when it listens.
std::string readNumber(int descriptor) {
    std::string number;
    char digit = 0;
    pollfd source{descriptor, POLLIN, 0};
    while (poll(&source, 1, patience) > 0 && read(descriptor, &digit, 1) == 1 && digit != '\n') {
        number += digit;
    }
    return number;
}

pid_t spawnServer(int numberPipe) {
    const std::string descriptor = std::to_string(numberPipe);
    const std::array<const char*, 8> arguments = {serverProgram, "-displayfd", descriptor.c_str(),
                                                  "-screen",     "0",          "640x480x24",
                                                  "-noreset",    nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, numberPipe, numberPipe); // the server inherits it
    pid_t process = -1;
    if (posix_spawn(&process, serverProgram, &actions, nullptr,
                    const_cast<char* const*>(arguments.data()), environ) != 0) {
        process = -1;
    }
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

} // namespace

bool XStage::isInstalled() {
    return access(serverProgram, X_OK) == 0;
}

XStage::XStage() {
    startServer();
    connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        ADD_FAILURE() << "no X server";
        return;
    }
    openWindow();
}

XStage::~XStage() {
    xcb_disconnect(connection);
    if (server > 0) {
        kill(server, SIGTERM);
        waitpid(server, nullptr, 0);
    }
}

void XStage::startServer() {
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) {
        ADD_FAILURE() << std::strerror(errno);
        return;
    }
    server = spawnServer(pipe[1]);
    close(pipe[1]);
    setenv("DISPLAY", (":" + readNumber(pipe[0])).c_str(), 1);
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("XDG_SESSION_TYPE");
    close(pipe[0]);
}

void XStage::openWindow() {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    root = screen->root;
    const std::uint32_t window = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values = {1, XCB_EVENT_MASK_KEY_PRESS |
                                                        XCB_EVENT_MASK_KEY_RELEASE};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(connection, window);
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    modifiers(); // the reply arrives after all earlier events
}

void XStage::hold(std::uint16_t kernelCode, bool down) {
    xcb_test_fake_input(connection, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                        static_cast<std::uint8_t>(kernelCode + keyCodeOffset), XCB_CURRENT_TIME,
                        XCB_NONE, 0, 0, 0);
    modifiers();
}

std::vector<std::string> XStage::takeKeys() {
    hold(marker, true);
    hold(marker, false);
    std::vector<std::string> seen;
    pollfd source{xcb_get_file_descriptor(connection), POLLIN, 0};
    do {
        using Event = std::unique_ptr<xcb_generic_event_t, Free>;
        while (const Event event{xcb_poll_for_event(connection)}) {
            const bool down = event->response_type == XCB_KEY_PRESS;
            if (!down && event->response_type != XCB_KEY_RELEASE) {
                continue;
            }
            const auto* key = reinterpret_cast<const xcb_key_press_event_t*>(event.get());
            const int code = key->detail - keyCodeOffset;
            if (code == marker && !down) {
                return seen;
            }
            if (code != marker) {
                seen.push_back((down ? "+" : "-") + std::to_string(code) + " while " +
                               std::to_string(key->state));
            }
        }
    } while (poll(&source, 1, patience) > 0);
    ADD_FAILURE() << "the keys have not arrived";
    return seen;
}

std::uint32_t XStage::modifiers() {
    const std::unique_ptr<xcb_query_pointer_reply_t, Free> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr));
    if (reply == nullptr) {
        ADD_FAILURE() << "the X server does not reply";
        return 0;
    }
    return reply->mask & 0xFF;
}

} // namespace glidemap
