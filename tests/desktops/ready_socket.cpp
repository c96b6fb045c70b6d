#include "desktops/ready_socket.h"

#include "desktops/program.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace glidemap::test {

ReadySocket::ReadySocket(std::filesystem::path at)
    : path(std::move(at)), descriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const timeval limit{patience.count(), 0};
    EXPECT_EQ(setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit), 0);
}

ReadySocket::~ReadySocket() {
    close(descriptor);
    unlink(path.c_str());
}

void ReadySocket::waitUntilReady() const {
    std::array<char, 1024> message{};
    for (;;) {
        const ssize_t size = recv(descriptor, message.data(), message.size(), 0);
        if (size < 0) {
            ADD_FAILURE() << "the program has not reported that it is ready";
            return;
        }
        const std::string_view text(message.data(), static_cast<std::size_t>(size));
        if (text.find("READY=1") != std::string_view::npos) {
            return;
        }
    }
}

} // namespace glidemap::test
