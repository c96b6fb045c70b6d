#include "platform/linux/windows/gnome/compositor_process.h"

#include "core/open_file.h"
#include "platform/linux/desktop/environment.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <filesystem>
#include <string>

namespace glidemap {

std::optional<pid_t> compositorProcess() {
    const std::string display = fromEnvironment("WAYLAND_DISPLAY");
    const std::string file =
        (std::filesystem::path(fromEnvironment("XDG_RUNTIME_DIR")) / display).native();
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
