#include "kit/temporary_folder.h"
#include "platform/qt/private_descriptors.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>

namespace glidemap {
namespace {

sockaddr_un addressOf(const std::filesystem::path& file) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    file.native().copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

void expectPrivate(int descriptor, const char* what) {
    EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0) << what;
    EXPECT_NE(fcntl(descriptor, F_GETFL) & O_NONBLOCK, 0) << what;
}

class PrivateDescriptorsTest : public testing::Test {
protected:
    // Connects the two sockets.
    void connectThem() {
        const sockaddr_un address = addressOf(folder.path() / "socket");
        ASSERT_EQ(bind(listening.descriptor(), generic(address), sizeof address), 0);
        ASSERT_EQ(listen(listening.descriptor(), 1), 0);
        ASSERT_EQ(connect(here.descriptor(), generic(address), sizeof address), 0);
        there = acceptedBy(listening);
        ASSERT_TRUE(there);
    }

    const test::TemporaryFolder folder;
    const OpenFile listening = localSocket();
    const OpenFile here = localSocket();
    OpenFile there;
};

TEST_F(PrivateDescriptorsTest, DescriptorsAreNonBlockingAndCloseOnExec) {
    connectThem();
    std::array<int, 2> ends{};
    ASSERT_TRUE(makePipe(ends));
    const OpenFile readEnd(ends[0]);
    const OpenFile writeEnd(ends[1]);
    expectPrivate(here.descriptor(), "a socket");
    expectPrivate(there.descriptor(), "an accepted one");
    expectPrivate(ends[0], "a pipe, to read from");
    expectPrivate(ends[1], "a pipe, to write to");
}

TEST_F(PrivateDescriptorsTest, SentTextArrivesAtThePeer) {
    connectThem();
    EXPECT_TRUE(sendAll(here, "a line\n"));
    std::array<char, 16> buffer{};
    const auto size = recv(there.descriptor(), buffer.data(), buffer.size(), 0);
    EXPECT_EQ(std::string(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))),
              "a line\n");
}

// By default, writing to a closed peer raises SIGPIPE, which would terminate the program.
TEST_F(PrivateDescriptorsTest, SendingToAClosedPeerFailsWithoutASignal) {
    connectThem();
    there = {};
    EXPECT_FALSE(sendAll(here, "a line\n"));
    EXPECT_EQ(errno, EPIPE);
}

TEST_F(PrivateDescriptorsTest, AcceptFailsWithoutAPendingConnection) {
    const sockaddr_un address = addressOf(folder.path() / "socket");
    ASSERT_EQ(bind(listening.descriptor(), generic(address), sizeof address), 0);
    ASSERT_EQ(listen(listening.descriptor(), 1), 0);
    EXPECT_FALSE(acceptedBy(listening));
    EXPECT_EQ(errno, EAGAIN);
}

} // namespace
} // namespace glidemap
