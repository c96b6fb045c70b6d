#include "platform/linux/diagnosis/socket_server.h"

#include "core/open_file.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>
#include <fstream>

namespace glidemap {

std::string programListeningOn(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const OpenFile socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket || path.empty() || path.size() >= sizeof address.sun_path) {
        return "";
    }
    path.copy(address.sun_path, path.size());
    if (path.front() == '@') {
        address.sun_path[0] = '\0';
    }
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    ucred server{};
    socklen_t size = sizeof server;
    if (connect(socket.descriptor(), reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        getsockopt(socket.descriptor(), SOL_SOCKET, SO_PEERCRED, &server, &size) != 0) {
        return "";
    }
    std::ifstream file("/proc/" + std::to_string(server.pid) + "/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

} // namespace glidemap
