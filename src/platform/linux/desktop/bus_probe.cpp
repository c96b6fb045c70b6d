#include "platform/linux/desktop/bus_probe.h"

#include "core/open_file.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace glidemap {

namespace {

using Clock = std::chrono::steady_clock;

struct SocketName {
    sockaddr_un address = {};
    socklen_t length = 0;
};

// Parses a single address, such as "unix:path=/run/user/1000/bus,guid=…".
std::optional<SocketName> socketNameIn(std::string_view address) {
    constexpr std::string_view transport = "unix:";
    if (!address.starts_with(transport)) {
        return std::nullopt;
    }
    address.remove_prefix(transport.size());
    while (!address.empty()) {
        const auto end = std::min(address.find(','), address.size());
        const std::string_view part = address.substr(0, end);
        address.remove_prefix(std::min(end + 1, address.size()));
        const bool isAbstract = part.starts_with("abstract=");
        if (!isAbstract && !part.starts_with("path=")) {
            continue;
        }
        const std::string escaped(part.substr(part.find('=') + 1));
        const std::string path =
            (isAbstract ? std::string(1, '\0') : std::string()) +
            takeText(g_uri_unescape_string(escaped.c_str(), nullptr)).value_or("");
        SocketName name;
        name.address.sun_family = AF_UNIX;
        if (path.empty() || path.size() >= sizeof name.address.sun_path) {
            return std::nullopt;
        }
        path.copy(name.address.sun_path, path.size());
        name.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() +
                                             (isAbstract ? 0 : 1));
        return name;
    }
    return std::nullopt;
}

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left, 0));
}

// Retries while the socket's backlog is full, because a full backlog refuses connections only
// temporarily.
bool connectUntil(const OpenFile& socket, const SocketName& name, Clock::time_point deadline) {
    constexpr int attemptInterval = 10; // milliseconds
    while (connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&name.address),
                   name.length) != 0) {
        if ((errno != EAGAIN && errno != EINTR) || Clock::now() >= deadline) {
            return false;
        }
        poll(nullptr, 0, attemptInterval);
    }
    return true;
}

// Returns the bytes with which the D-Bus libraries begin authentication. Any reply shows that the
// bus responds.
std::string firstWords() {
    const std::string user = std::to_string(geteuid());
    std::string words(1, '\0');
    words += "AUTH EXTERNAL ";
    for (const char digit : user) {
        std::array<char, 3> hexadecimal{};
        std::snprintf(hexadecimal.data(), hexadecimal.size(), "%02x", static_cast<unsigned>(digit));
        words += hexadecimal.data();
    }
    return words + "\r\n";
}

bool respondsAt(const SocketName& name, std::chrono::milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    const OpenFile socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const std::string words = firstWords();
    if (!socket || !connectUntil(socket, name, deadline) ||
        send(socket.descriptor(), words.data(), words.size(), MSG_NOSIGNAL) !=
            static_cast<ssize_t>(words.size())) {
        return false;
    }
    pollfd wait{socket.descriptor(), POLLIN, 0};
    if (retried([&] { return poll(&wait, 1, millisecondsUntil(deadline)); }) <= 0) {
        return false;
    }
    char first = 0;
    return recv(socket.descriptor(), &first, 1, 0) == 1;
}

} // namespace

// Checks only the first address, because the libraries try a list of addresses in order and would
// wait for the first one.
bool busResponds(const std::string& address, std::chrono::milliseconds patience) {
    const std::string first = address.substr(0, address.find(';'));
    const auto name = socketNameIn(first);
    return !name || respondsAt(*name, patience);
}

// GIO reads GIO_USE_VFS only once. The variable is removed afterwards, so that launched programs do
// not inherit it.
// NOLINTBEGIN(concurrency-mt-unsafe): no other thread uses the environment yet
void useFilesWithoutBus() {
    constexpr const char* variable = "GIO_USE_VFS";
    if (std::getenv(variable) != nullptr) {
        return;
    }
    setenv(variable, "local", 1);
    g_vfs_get_default();
    unsetenv(variable);
}
// NOLINTEND(concurrency-mt-unsafe)

} // namespace glidemap
