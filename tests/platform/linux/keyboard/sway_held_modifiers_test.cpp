#include "core/open_file.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/keyboard/sway_held_modifiers.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

constexpr std::uint32_t runCommand = 0;
constexpr std::size_t headerSize = 14;

struct Message {
    std::uint32_t type = 0;
    std::string payload;

    friend bool operator==(const Message&, const Message&) = default;
};

void PrintTo(const Message& message, std::ostream* out) {
    *out << message.type << " " << message.payload;
}

const Message toSeparate = {runCommand, "input \"0:0:Glidemap_Keyboard\" repeat_delay 59999"};

std::string written(const Message& message) {
    std::array<std::uint32_t, 2> numbers = {static_cast<std::uint32_t>(message.payload.size()),
                                            message.type};
    std::string bytes = "i3-ipc" + std::string(sizeof numbers, '\0') + message.payload;
    std::memcpy(bytes.data() + 6, numbers.data(), sizeof numbers);
    return bytes;
}

// Acts as sway's socket, with one client.
class FakeSway {
public:
    FakeSway() {
        sockaddr_un name = {};
        name.sun_family = AF_UNIX;
        path().copy(name.sun_path, sizeof name.sun_path - 1);
        EXPECT_EQ(
            bind(listening.descriptor(), reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
        EXPECT_EQ(listen(listening.descriptor(), 1), 0);
    }

    std::string path() const { return folder.path() / "sway"; }

    void accept() {
        ASSERT_TRUE(isReadable(listening));
        client = OpenFile(accept4(listening.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        ASSERT_TRUE(client);
    }

    // Returns nullopt if the client has disconnected.
    std::optional<Message> next() {
        while (received.size() < headerSize || received.size() < headerSize + lengthOfFirst()) {
            std::array<char, 512> buffer{};
            if (!isReadable(client)) {
                return std::nullopt;
            }
            const ssize_t count = read(client.descriptor(), buffer.data(), buffer.size());
            if (count <= 0) {
                return std::nullopt;
            }
            received.append(buffer.data(), static_cast<std::size_t>(count));
        }
        Message message;
        std::memcpy(&message.type, received.data() + 10, sizeof message.type);
        message.payload = received.substr(headerSize, lengthOfFirst());
        EXPECT_TRUE(received.starts_with("i3-ipc"));
        received.erase(0, headerSize + message.payload.size());
        return message;
    }

    bool hasLostTheClient() const {
        pollfd waited{client.descriptor(), POLLRDHUP, 0};
        return poll(&waited, 1, 0) > 0;
    }

    void send(const std::string& bytes) {
        ASSERT_EQ(::send(client.descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }

private:
    static bool isReadable(const OpenFile& file) {
        pollfd waited{file.descriptor(), POLLIN, 0};
        const std::chrono::milliseconds limit = test::patience;
        const bool isReady =
            retried([&] { return poll(&waited, 1, static_cast<int>(limit.count())); }) == 1;
        EXPECT_TRUE(isReady) << "nothing arrives";
        return isReady;
    }

    std::uint32_t lengthOfFirst() const {
        std::uint32_t length = 0;
        std::memcpy(&length, received.data() + 6, sizeof length);
        return length;
    }

    test::TemporaryFolder folder;
    OpenFile listening{socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    OpenFile client;
    std::string received;
};

class SwayHeldModifiersTest : public testing::Test {
protected:
    DesktopThread thread;
    FakeSway sway;
};

TEST_F(SwayHeldModifiersTest, SetsASeparateRepeatDelayForTheKeyboard) {
    const SwayHeldModifiers held(thread, sway.path());
    sway.accept();
    EXPECT_EQ(sway.next(), toSeparate);
}

TEST_F(SwayHeldModifiersTest, ClosesTheConnectionAfterTheReply) {
    const SwayHeldModifiers held(thread, sway.path());
    sway.accept();
    EXPECT_EQ(sway.next(), toSeparate);
    EXPECT_FALSE(sway.hasLostTheClient());
    sway.send(written({runCommand, R"([{ "success": true }])"}));
    EXPECT_EQ(sway.next(), std::nullopt);
}

TEST_F(SwayHeldModifiersTest, DestructionDoesNotWaitForTheReply) {
    {
        const SwayHeldModifiers held(thread, sway.path());
        sway.accept();
    }
    EXPECT_EQ(sway.next(), toSeparate);
    EXPECT_EQ(sway.next(), std::nullopt);
}

TEST_F(SwayHeldModifiersTest, TypesKeysImmediatelyWithAndWithoutSway) {
    for (const std::string& path :
         {sway.path(), std::string("/nowhere/sway"), "/" + std::string(200, 'x')}) {
        SwayHeldModifiers held(thread, path);
        bool isTyped = false;
        held.type({}, [&] { isTyped = true; });
        EXPECT_TRUE(isTyped) << path;
    }
}

} // namespace
} // namespace glidemap
