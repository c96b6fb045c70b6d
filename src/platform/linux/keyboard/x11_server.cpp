#include "platform/linux/keyboard/x11_server.h"

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

bool hasExtensions(const X11Connection& server) {
    const auto* test = xcb_get_extension_data(server.raw(), &xcb_test_id);
    const auto* input = xcb_get_extension_data(server.raw(), &xcb_input_id);
    if (test == nullptr || test->present == 0 || input == nullptr || input->present == 0) {
        return false;
    }
    // The client announces version 2.2, because the server reports raw events of grabbed keys only
    // to clients that announce at least version 2.1.
    const auto version = server.reply(xcb_input_xi_query_version_reply,
                                      xcb_input_xi_query_version(server.raw(), 2, 2));
    return version != nullptr && version->major_version >= 2;
}

// The names of the server's XTEST keyboards contain this word.
bool isXTest(std::string_view name) {
    return name.find("XTEST") != std::string_view::npos;
}

} // namespace

std::unique_ptr<X11Server> X11Server::connect() {
    auto connection = X11Connection::open();
    if (!connection || !hasExtensions(*connection)) {
        return nullptr;
    }
    return std::unique_ptr<X11Server>(new X11Server(*std::move(connection)));
}

X11Server::X11Server(X11Connection connected) : server(std::move(connected)) {}

X11Server::~X11Server() = default;

std::vector<std::uint16_t> X11Server::modifiersDown() {
    // Send both requests first, so that there is one round trip.
    const auto mappingRequest = xcb_get_modifier_mapping(server.raw());
    const auto keysRequest = xcb_query_keymap(server.raw());
    const auto mapping = server.reply(xcb_get_modifier_mapping_reply, mappingRequest);
    const auto keys = server.reply(xcb_query_keymap_reply, keysRequest);
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

void X11Server::addKeysDown(std::uint16_t device, std::set<std::uint16_t>& keys) const {
    const auto reply =
        server.reply(xcb_input_query_device_state_reply,
                     xcb_input_query_device_state(server.raw(), static_cast<std::uint8_t>(device)));
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
    const auto devices =
        server.reply(xcb_input_xi_query_device_reply,
                     xcb_input_xi_query_device(server.raw(), XCB_INPUT_DEVICE_ALL));
    if (devices == nullptr) {
        return keys;
    }
    for (auto each = xcb_input_xi_query_device_infos_iterator(devices.get()); each.rem > 0;
         xcb_input_xi_device_info_next(&each)) {
        const std::string_view name(xcb_input_xi_device_info_name(each.data), each.data->name_len);
        if (each.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && !isXTest(name)) {
            addKeysDown(each.data->deviceid,
                        name == UinputKeyDevice::name ? keys.ours : keys.users);
        }
    }
    return keys;
}

void X11Server::type(std::span<const KeyChange> changes) {
    for (const KeyChange& change : changes) {
        const auto type = change.down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
        const auto code = static_cast<std::uint8_t>(change.kernelCode + keyCodeOffset);
        xcb_test_fake_input(server.raw(), static_cast<std::uint8_t>(type), code, XCB_CURRENT_TIME,
                            XCB_NONE, 0, 0, 0);
    }
    server.flush();
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
    xcb_input_xi_select_events(server.raw(), server.root(), 1, &mask.head);
    server.flush();
}

bool X11Server::discardEvents() {
    bool anyPending = false;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(server.raw())}) {
        anyPending = true;
    }
    return anyPending;
}

int X11Server::descriptor() const {
    return server.descriptor();
}

bool X11Server::isAlive() const {
    return !server.isLost();
}

} // namespace glidemap
