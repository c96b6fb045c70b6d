// Receives a program's readiness notification in systemd's protocol ($NOTIFY_SOCKET).
//
// Thread:  one.
// Owner:   a desktop.
// Errors:  a program that does not send it in time fails the test.
#pragma once

#include <filesystem>

namespace glidemap::test {

class ReadySocket {
public:
    explicit ReadySocket(std::filesystem::path at);
    ReadySocket(const ReadySocket&) = delete;
    ReadySocket& operator=(const ReadySocket&) = delete;
    ~ReadySocket();

    void waitUntilReady() const;

private:
    std::filesystem::path path;
    int descriptor;
};

} // namespace glidemap::test
