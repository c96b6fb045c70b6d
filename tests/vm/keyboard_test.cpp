// Tests the virtual keyboard in a real kernel. The tests read it as other programs do.
//
// The kernel drops an event that does not change the key's state. So a complete sequence of events
// shows that each key was pressed and released.

#include "device_reader.h"
#include "dispatch/key_names.h"
#include "input_devices.h"
#include "platform/linux/keyboard/key_codes.h"
#include "platform/linux/keyboard/uinput_key_device.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "unprivileged.h"

#include <gtest/gtest.h>
#include <linux/input.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t control = 0x40000;
constexpr std::uint64_t option = 0x80000;
constexpr std::uint64_t command = 0x100000;
constexpr std::uint16_t t = 17;

std::string firstLine(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

// Returns the sysfs paths of the event nodes of devices with the virtual keyboard's name.
std::vector<std::filesystem::path> keyboards() {
    std::vector<std::filesystem::path> found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/class/input", error)) {
        if (entry.path().filename().string().starts_with("event") &&
            firstLine(entry.path() / "device/name") == "Glidemap Keyboard") {
            found.push_back(entry.path());
        }
    }
    return found;
}

using AllSeen = std::vector<PadEvent>;

// Adds a key change and its SYN_REPORT.
void expectChange(AllSeen& expected, std::uint16_t code, int value) {
    expected.push_back({EV_KEY, code, value});
    expected.push_back({EV_SYN, SYN_REPORT, 0});
}

AllSeen changes(std::initializer_list<std::pair<int, int>> all) {
    AllSeen expected;
    for (const auto& [code, value] : all) {
        expectChange(expected, static_cast<std::uint16_t>(code), value);
    }
    return expected;
}

// Returns the keyboard's node. It already exists when UI_DEV_CREATE returns.
std::filesystem::path nodeOf(const std::filesystem::path& inSys) {
    return "/dev/input" / inSys.filename();
}

void post(UinputKeyboard& keyboard, std::uint16_t key, std::uint64_t flags) {
    const KeyEvent events[] = {{key, true, flags}, {key, false, flags}};
    keyboard.post(events);
}

TEST(KeyboardTest, DeviceExistsFromConstructionToDestruction) {
    ASSERT_EQ(keyboards().size(), 0U);
    {
        UinputKeyboard keyboard;
        const auto before = keyboards();
        ASSERT_EQ(before.size(), 1U);
        post(keyboard, t, control);
        post(keyboard, t, shift);
        EXPECT_EQ(keyboards(), before);
        EXPECT_EQ(firstLine(before.front() / "device/phys"), "glidemap/keyboard");
        // With this bus type, no desktop disables the touchpad while the program types.
        EXPECT_EQ(firstLine(before.front() / "device/id/bustype"), "0006");
    }
    EXPECT_EQ(keyboards().size(), 0U);
}

TEST(KeyboardTest, HasExactlyTheKeysThatCanBeTyped) {
    UinputKeyboard keyboard;
    ASSERT_EQ(keyboards().size(), 1U);
    std::set<int> expected;
    for (const KeyCodePair& pair : keyCodePairs()) {
        expected.insert(pair.kernelCode);
    }
    EXPECT_EQ(shapeOf(nodeOf(keyboards().front())).keys, expected);
    // The keyboard has only EV_KEY, because with EV_REP the kernel would repeat a held key.
    EXPECT_EQ(firstLine(keyboards().front() / "device/capabilities/ev"), "3");
}

TEST(KeyboardTest, PressesModifiersBeforeAndReleasesThemAfterTheKey) {
    UinputKeyboard keyboard;
    ASSERT_EQ(keyboards().size(), 1U);
    DeviceReader reader(nodeOf(keyboards().front()));
    post(keyboard, t, shift | control | option | command);
    EXPECT_EQ(reader.take(), changes({{KEY_LEFTSHIFT, 1},
                                      {KEY_LEFTCTRL, 1},
                                      {KEY_LEFTALT, 1},
                                      {KEY_LEFTMETA, 1},
                                      {KEY_T, 1},
                                      {KEY_T, 0},
                                      {KEY_LEFTMETA, 0},
                                      {KEY_LEFTALT, 0},
                                      {KEY_LEFTCTRL, 0},
                                      {KEY_LEFTSHIFT, 0}}));
    post(keyboard, t, 0);
    EXPECT_EQ(reader.take(), changes({{KEY_T, 1}, {KEY_T, 0}}));
}

TEST(KeyboardTest, TypesEveryNamedKey) {
    UinputKeyboard keyboard;
    ASSERT_EQ(keyboards().size(), 1U);
    DeviceReader reader(nodeOf(keyboards().front()));
    for (const auto& [keyCode, name] : KeyNames::map()) {
        const auto kernelCode = kernelCodeOf(keyCode);
        ASSERT_TRUE(kernelCode.has_value()) << name;
        post(keyboard, keyCode, 0);
        EXPECT_EQ(reader.take(), changes({{*kernelCode, 1}, {*kernelCode, 0}})) << name;
    }
}

TEST(KeyboardTest, InvalidKeyTypesNothing) {
    UinputKeyboard keyboard;
    ASSERT_EQ(keyboards().size(), 1U);
    DeviceReader reader(nodeOf(keyboards().front()));
    post(keyboard, 127, control);
    EXPECT_EQ(reader.take(), AllSeen{});
}

// The kernel discards unread events of an unplugged keyboard, so the test reads the events just
// before the removal.
class ReadToTheEnd : public KeyDevice {
public:
    explicit ReadToTheEnd(AllSeen& readEvents) : seen(readEvents) {}
    ~ReadToTheEnd() override {
        if (reader != nullptr) {
            seen = reader->take();
        }
    }

    bool plugIn() override {
        const bool isPlugged = device.plugIn();
        if (reader == nullptr && keyboards().size() == 1) {
            reader = std::make_unique<DeviceReader>(nodeOf(keyboards().front()));
        }
        return isPlugged;
    }

    void unplug() override { device.unplug(); }
    bool write(std::span<const KeyChange> changes) override { return device.write(changes); }

private:
    AllSeen& seen;
    UinputKeyDevice device;
    std::unique_ptr<DeviceReader> reader;
};

TEST(KeyboardTest, ReleasesKeysBeforeTheDeviceIsRemoved) {
    AllSeen seen;
    {
        UinputKeyboard keyboard(std::make_unique<ReadToTheEnd>(seen), nullptr);
        const KeyEvent press[] = {{t, true, control}};
        keyboard.post(press);
    }
    EXPECT_EQ(seen, changes({{KEY_LEFTCTRL, 1}, {KEY_T, 1}, {KEY_T, 0}, {KEY_LEFTCTRL, 0}}));
    EXPECT_EQ(keyboards().size(), 0U);
}

TEST(KeyboardTest, CreatesTheDeviceOncePermissionIsGranted) {
    constexpr const char* controlNode = "/dev/uinput";
    ASSERT_EQ(chmod(controlNode, 0600), 0);
    std::unique_ptr<UinputKeyboard> keyboard;
    {
        const Unprivileged unprivileged;
        keyboard = std::make_unique<UinputKeyboard>();
        post(*keyboard, t, control);
        EXPECT_EQ(keyboards().size(), 0U);
    }
    ASSERT_EQ(chmod(controlNode, 0666), 0);
    {
        const Unprivileged unprivileged;
        post(*keyboard, t, control);
    }
    EXPECT_EQ(keyboards().size(), 1U);
    ASSERT_EQ(chmod(controlNode, 0600), 0);
}

} // namespace
} // namespace glidemap::test
