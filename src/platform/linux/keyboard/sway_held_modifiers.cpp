#include "platform/linux/keyboard/sway_held_modifiers.h"

#include "core/log.h"
#include "platform/linux/keyboard/uinput_key_device.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

namespace glidemap {

namespace {

// Message types of the protocol, see sway-ipc(7).
constexpr std::uint32_t runCommand = 0;
constexpr std::uint32_t subscribe = 2;
constexpr std::uint32_t inputEvent = 0x80000015;

constexpr std::size_t headerSize = 14;
constexpr std::size_t maxPayload = 1 << 20; // no message of sway is longer

// The delay before the command of separation() is sent again. It limits the number of these
// commands in case sway reports each of them as a change of the keymap.
constexpr std::chrono::milliseconds pause(200);

// Returns sway's identifier of our keyboard: vendor, product, and the name with underscores.
std::string keyboardIdentifier() {
    std::string name = UinputKeyDevice::name;
    std::ranges::replace(name, ' ', '_');
    return "0:0:" + name;
}

// Returns the command that sets an option of our keyboard's keymap, so that sway does not merge our
// keyboard with the user's. The option changes no key, only the use of a light, and our keyboard
// has no lights. It replaces the user's options for our keyboard only. On sway 1.7 a different
// repeat setting would also keep the keyboards apart. But sway 1.10 applies that setting to all
// merged keyboards, so the user's keys would not repeat.
std::string separation() {
    return "input \"" + keyboardIdentifier() + "\" xkb_options grp_led:scroll";
}

std::string bytesOf(std::uint32_t number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

// A message consists of a header, whose numbers are in the machine's byte order, and a payload.
std::string messageOf(std::uint32_t type, const std::string& payload) {
    return "i3-ipc" + bytesOf(static_cast<std::uint32_t>(payload.size())) + bytesOf(type) + payload;
}

std::uint32_t numberAt(const std::string& bytes, std::size_t offset) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

bool isAboutOurKeymap(std::uint32_t type, const std::string& payload) {
    return type == inputEvent && payload.find("\"xkb_keymap\"") != std::string::npos &&
           payload.find(keyboardIdentifier()) != std::string::npos;
}

OpenFile connectedTo(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return {};
    }
    path.copy(std::begin(address.sun_path), path.size());
    OpenFile opened(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto* const any = reinterpret_cast<const sockaddr*>(&address);
    const bool isOpen = opened && ::connect(opened.descriptor(), any, sizeof address) == 0;
    return isOpen ? std::move(opened) : OpenFile();
}

} // namespace

SwayHeldModifiers::SwayHeldModifiers(DesktopThread& desktopThread, const std::string& socketPath)
    : desktop(desktopThread) {
    desktop.submit([this, socketPath] { connect(socketPath); });
}

SwayHeldModifiers::~SwayHeldModifiers() {
    desktop.call([this] { disconnect(); });
}

void SwayHeldModifiers::type(std::vector<KeyChange> /*changes*/, std::function<void()> plainly) {
    plainly();
}

void SwayHeldModifiers::connect(const std::string& socketPath) {
    socket = connectedTo(socketPath);
    if (!send(subscribe, "[\"input\"]") || !separateKeyboard()) {
        logLine("actions", "sway cannot be reached: held modifiers change shortcuts");
        disconnect();
        return;
    }
    logLine("actions", "separated the virtual keyboard's modifiers from the user's");
    watch = desktop.watch(socket.descriptor(), [this] { read(); });
}

bool SwayHeldModifiers::send(std::uint32_t type, const std::string& payload) {
    const std::string message = messageOf(type, payload);
    const ssize_t sent = retried(
        [&] { return ::send(socket.descriptor(), message.data(), message.size(), MSG_NOSIGNAL); });
    return sent == static_cast<ssize_t>(message.size());
}

bool SwayHeldModifiers::separateKeyboard() {
    return send(runCommand, separation());
}

void SwayHeldModifiers::read() {
    std::array<char, 4096> buffer{};
    const ssize_t count =
        retried([&] { return ::read(socket.descriptor(), buffer.data(), buffer.size()); });
    if (count < 0 && errno == EAGAIN) {
        return;
    }
    received.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count <= 0 || !takeMessages()) {
        disconnect();
    }
}

// Returns false if a message is longer than maxPayload, and therefore invalid.
bool SwayHeldModifiers::takeMessages() {
    while (received.size() >= headerSize) {
        const std::size_t length = numberAt(received, 6);
        if (length > maxPayload) {
            return false;
        }
        if (received.size() < headerSize + length) {
            break;
        }
        if (isAboutOurKeymap(numberAt(received, 10), received.substr(headerSize, length))) {
            repetition = desktop.after(pause, [this] { separateKeyboard(); });
        }
        received.erase(0, headerSize + length);
    }
    return true;
}

void SwayHeldModifiers::disconnect() {
    repetition = {};
    watch = {};
    socket = {};
}

} // namespace glidemap
