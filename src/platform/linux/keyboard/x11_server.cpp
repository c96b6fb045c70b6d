#include "platform/linux/keyboard/x11_server.h"

#include "platform/linux/desktop/x11.h"
#include "platform/linux/keyboard/uinput_key_device.h"

#include <linux/input-event-codes.h>
#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

constexpr int keyCodeOffset = 8;
constexpr int maxKeyCode = 255;
constexpr int keysPerByte = 8;

// Waits for the reply to a request. `fetchReply` is the xcb function for this kind of reply.
template <typename Reply, typename Cookie>
X11Reply<Reply> wait(xcb_connection_t* connection,
                     Reply* (*fetchReply)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                     Cookie request) {
    xcb_generic_error_t* error = nullptr;
    X11Reply<Reply> reply(fetchReply(connection, request, &error));
    const X11Reply<xcb_generic_error_t> unused(error);
    return reply;
}

bool isDown(const std::uint8_t* keys, int keyCode) {
    return (keys[keyCode / keysPerByte] >> (keyCode % keysPerByte) & 1) != 0;
}

std::uint16_t kernelCode(int keyCode) {
    return static_cast<std::uint16_t>(keyCode - keyCodeOffset);
}

bool isModifierByPlace(std::uint16_t kernelCode) {
    constexpr std::array<std::uint16_t, 8> places = {KEY_LEFTSHIFT, KEY_RIGHTSHIFT, KEY_LEFTCTRL,
                                                     KEY_RIGHTCTRL, KEY_LEFTALT,    KEY_RIGHTALT,
                                                     KEY_LEFTMETA,  KEY_RIGHTMETA};
    return std::ranges::find(places, kernelCode) != places.end();
}

// Returns the keys that act as modifiers only while they are held. Keys that lock, or that change
// the layout when pressed, are excluded, because pressing them again would have a different effect.
// Keys that the user has remapped to Shift or Control are included, because they do not lock.
std::set<int> holdingKeyCodes(const xcb_get_modifier_mapping_reply_t& mapping) {
    std::set<int> found;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(&mapping);
    for (int row = 0; row < 8; ++row) {
        const bool isShiftOrControl = row == XCB_MAP_INDEX_SHIFT || row == XCB_MAP_INDEX_CONTROL;
        for (int index = 0; index < mapping.keycodes_per_modifier; ++index) {
            const int code = codes[row * mapping.keycodes_per_modifier + index];
            if (code >= keyCodeOffset && row != XCB_MAP_INDEX_LOCK &&
                (isShiftOrControl || isModifierByPlace(kernelCode(code)))) {
                found.insert(code);
            }
        }
    }
    return found;
}

bool hasExtensions(xcb_connection_t* connection) {
    const auto* test = xcb_get_extension_data(connection, &xcb_test_id);
    const auto* input = xcb_get_extension_data(connection, &xcb_input_id);
    if (test == nullptr || test->present == 0 || input == nullptr || input->present == 0) {
        return false;
    }
    // Since version 2, the server reports raw events of all keys, even of grabbed ones.
    const auto version = wait(connection, xcb_input_xi_query_version_reply,
                              xcb_input_xi_query_version(connection, 2, 2));
    return version != nullptr && version->major_version >= 2;
}

// The server's own XTEST keyboards have such names.
bool isXTest(std::string_view name) {
    return name.find("XTEST") != std::string_view::npos;
}

} // namespace

struct X11Server::State {
    OwnedX11Connection owner;
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_NONE;

    void addKeysDown(xcb_input_device_id_t device, std::set<std::uint16_t>& keys) const;
};

std::unique_ptr<X11Server> X11Server::connect() {
    auto state = std::make_unique<State>();
    int screenNumber = 0;
    state->owner.reset(xcb_connect(nullptr, &screenNumber));
    state->connection = state->owner.get();
    if (xcb_connection_has_error(state->connection) != 0 || !hasExtensions(state->connection)) {
        return nullptr;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(state->connection));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) {
        xcb_screen_next(&screens);
    }
    state->root = screens.data->root;
    return std::unique_ptr<X11Server>(new X11Server(std::move(state)));
}

X11Server::X11Server(std::unique_ptr<State> connected) : state(std::move(connected)) {}

X11Server::~X11Server() = default;

std::vector<std::uint16_t> X11Server::modifiersDown() {
    // Sends both requests before waiting for a reply, to need only one round trip.
    const auto mappingRequest = xcb_get_modifier_mapping(state->connection);
    const auto keysRequest = xcb_query_keymap(state->connection);
    const auto mapping = wait(state->connection, xcb_get_modifier_mapping_reply, mappingRequest);
    const auto keys = wait(state->connection, xcb_query_keymap_reply, keysRequest);
    std::vector<std::uint16_t> down;
    if (mapping == nullptr || keys == nullptr) {
        return down;
    }
    for (const int code : holdingKeyCodes(*mapping)) {
        if (isDown(keys->keys, code)) {
            down.push_back(kernelCode(code));
        }
    }
    return down;
}

void X11Server::State::addKeysDown(xcb_input_device_id_t device,
                                   std::set<std::uint16_t>& keys) const {
    const auto reply =
        wait(connection, xcb_input_query_device_state_reply,
             xcb_input_query_device_state(connection, static_cast<std::uint8_t>(device)));
    if (reply == nullptr) {
        return;
    }
    for (auto each = xcb_input_query_device_state_classes_iterator(reply.get()); each.rem > 0;
         xcb_input_input_state_next(&each)) {
        if (each.data->class_id != XCB_INPUT_INPUT_CLASS_KEY) {
            continue;
        }
        const auto* held = reinterpret_cast<const xcb_input_key_state_t*>(each.data);
        for (int code = keyCodeOffset; code <= maxKeyCode; ++code) {
            if (isDown(held->keys, code)) {
                keys.insert(kernelCode(code));
            }
        }
    }
}

X11Server::KeysDown X11Server::keysDown() {
    KeysDown keys;
    const auto devices = wait(state->connection, xcb_input_xi_query_device_reply,
                              xcb_input_xi_query_device(state->connection, XCB_INPUT_DEVICE_ALL));
    if (devices == nullptr) {
        return keys;
    }
    for (auto each = xcb_input_xi_query_device_infos_iterator(devices.get()); each.rem > 0;
         xcb_input_xi_device_info_next(&each)) {
        const std::string_view name(xcb_input_xi_device_info_name(each.data), each.data->name_len);
        if (each.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && !isXTest(name)) {
            state->addKeysDown(each.data->deviceid,
                               name == UinputKeyDevice::name ? keys.ours : keys.users);
        }
    }
    return keys;
}

void X11Server::type(std::span<const KeyChange> changes) {
    for (const KeyChange& change : changes) {
        const auto type = change.down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
        const auto code = static_cast<std::uint8_t>(change.kernelCode + keyCodeOffset);
        xcb_test_fake_input(state->connection, static_cast<std::uint8_t>(type), code,
                            XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    }
    xcb_flush(state->connection);
}

bool X11Server::canType(std::span<const KeyChange> changes) const {
    return std::ranges::all_of(changes, [](const KeyChange& change) {
        return change.kernelCode + keyCodeOffset <= maxKeyCode;
    });
}

void X11Server::listenToReleases(bool listen) {
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t events;
    } mask{};
    mask.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    mask.head.mask_len = 1;
    mask.events = listen ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE} : 0;
    xcb_input_xi_select_events(state->connection, state->root, 1, &mask.head);
    xcb_flush(state->connection);
}

bool X11Server::discardEvents() {
    bool anyPending = false;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(state->connection)}) {
        anyPending = true;
    }
    return anyPending;
}

int X11Server::descriptor() const {
    return xcb_get_file_descriptor(state->connection);
}

bool X11Server::isAlive() const {
    return xcb_connection_has_error(state->connection) == 0;
}

} // namespace glidemap
