// A fake bus that accepts connections and never replies.
//
// Owner:   a test.
#pragma once

#include "kit/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <string>

namespace glidemap::test {

class SilentSocket {
public:
    SilentSocket() {
        sockaddr_un name = {};
        name.sun_family = AF_UNIX;
        const std::string path = folder.path() / "bus";
        path.copy(name.sun_path, sizeof name.sun_path - 1);
        EXPECT_EQ(bind(file, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
        EXPECT_EQ(listen(file, 8), 0);
    }
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;
    ~SilentSocket() { close(file); }

    std::string address() const { return "unix:path=" + (folder.path() / "bus").string(); }

private:
    TemporaryFolder folder;
    int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

} // namespace glidemap::test
