#include "platform/linux/keyboard/sway_held_modifiers.h"

#include "core/log.h"
#include "platform/linux/keyboard/uinput_key_device.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint32_t runCommand = 0; // a message type of the protocol, see sway-ipc(7)

// Returns sway's identifier of our keyboard: vendor, product, and the name with underscores.
std::string keyboardIdentifier() {
    std::string name = UinputKeyDevice::name;
    std::ranges::replace(name, ' ', '_');
    return "0:0:" + name;
}

// Returns the command that sets an unusual repeat delay. The delay itself has no effect, because
// typed keys are released long before.
std::string separation() {
    constexpr const char* delay = "59999"; // milliseconds
    return "input \"" + keyboardIdentifier() + "\" repeat_delay " + delay;
}

std::string bytesOf(std::uint32_t number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

// A message consists of a header, whose numbers are in the machine's byte order, and a payload.
std::string messageOf(const std::string& command) {
    return "i3-ipc" + bytesOf(static_cast<std::uint32_t>(command.size())) + bytesOf(runCommand) +
           command;
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
    desktop.submit([this, socketPath] { separateKeyboard(socketPath); });
}

SwayHeldModifiers::~SwayHeldModifiers() {
    desktop.call([this] { disconnect(); });
}

void SwayHeldModifiers::type(std::vector<KeyChange> /*changes*/, std::function<void()> plainly) {
    plainly();
}

// Waits for the reply before disconnecting, because sway discards the command of a client that has
// disconnected.
void SwayHeldModifiers::separateKeyboard(const std::string& socketPath) {
    socket = connectedTo(socketPath);
    const std::string message = messageOf(separation());
    const ssize_t sent = retried(
        [&] { return send(socket.descriptor(), message.data(), message.size(), MSG_NOSIGNAL); });
    if (sent != static_cast<ssize_t>(message.size())) {
        logLine("actions", "sway cannot be reached: held modifiers change shortcuts");
        disconnect();
        return;
    }
    logLine("actions", "separated the virtual keyboard's modifiers from the user's");
    watch = desktop.watch(socket.descriptor(), [this] { disconnect(); });
}

void SwayHeldModifiers::disconnect() {
    watch = {};
    socket = {};
}

} // namespace glidemap
