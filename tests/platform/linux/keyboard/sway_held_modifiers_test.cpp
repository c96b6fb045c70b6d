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
constexpr std::uint32_t subscribe = 2;
constexpr std::uint32_t inputEvent = 0x80000015;
constexpr std::size_t headerSize = 14;

struct Message {
    std::uint32_t type = 0;
    std::string payload;

    friend bool operator==(const Message&, const Message&) = default;
};

void PrintTo(const Message& message, std::ostream* out) {
    *out << message.type << " " << message.payload;
}

const Message toListen = {subscribe, "[\"input\"]"};
const Message toSeparate = {runCommand,
                            "input \"0:0:Glidemap_Keyboard\" xkb_options grp_led:scroll"};

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

Message keymapEvent(const std::string& keyboard) {
    return {inputEvent,
            R"({ "change": "xkb_keymap", "input": { "identifier": ")" + keyboard + R"(" } })"};
}

class SwayHeldModifiersTest : public testing::Test {
protected:
    void expectSeparation() {
        sway.accept();
        EXPECT_EQ(sway.next(), toListen);
        EXPECT_EQ(sway.next(), toSeparate);
    }

    DesktopThread thread;
    FakeSway sway;
};

TEST_F(SwayHeldModifiersTest, SetsASeparateKeymapForTheKeyboard) {
    const SwayHeldModifiers held(thread, sway.path());
    expectSeparation();
}

TEST_F(SwayHeldModifiersTest, RepeatsTheCommandWhenTheKeymapChanges) {
    const SwayHeldModifiers held(thread, sway.path());
    expectSeparation();
    const std::string bytes = written({runCommand, R"([{ "success": true }])"}) +
                              written(keymapEvent("0:0:Glidemap_Keyboard"));
    sway.send(bytes.substr(0, 40)); // a message may arrive in parts
    sway.send(bytes.substr(40));
    EXPECT_EQ(sway.next(), toSeparate);
}

TEST_F(SwayHeldModifiersTest, OtherEventsCauseNoCommand) {
    const SwayHeldModifiers held(thread, sway.path());
    expectSeparation();
    sway.send(written(keymapEvent("1:1:Another_Keyboard")) +
              written({inputEvent, R"({ "change": "added", "input": "0:0:Glidemap_Keyboard" })"}));
    sway.send(std::string(20, '\xff')); // ends the connection
    EXPECT_EQ(sway.next(), std::nullopt);
}

TEST_F(SwayHeldModifiersTest, DestructionDoesNotWaitForTheReply) {
    {
        const SwayHeldModifiers held(thread, sway.path());
        sway.accept();
    }
    EXPECT_EQ(sway.next(), toListen);
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
