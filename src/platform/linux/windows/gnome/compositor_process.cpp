#include "platform/linux/windows/gnome/compositor_process.h"

#include "core/open_file.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace glidemap {

namespace {

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

std::optional<pid_t> compositorProcess() {
    const std::string display = environment("WAYLAND_DISPLAY");
    const std::string file =
        (std::filesystem::path(environment("XDG_RUNTIME_DIR")) / display).native();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (display.empty() || file.size() >= sizeof address.sun_path) {
        return std::nullopt;
    }
    file.copy(address.sun_path, file.size());
    const OpenFile socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    ucred process = {};
    socklen_t size = sizeof process;
    const bool isKnown =
        connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
            0 &&
        getsockopt(socket.descriptor(), SOL_SOCKET, SO_PEERCRED, &process, &size) == 0 &&
        process.pid > 0;
    return isKnown ? std::optional(process.pid) : std::nullopt;
}

} // namespace glidemap
