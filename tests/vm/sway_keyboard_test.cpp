// Tests which of sway's bindings run when the program types shortcuts while the user holds a
// modifier on a physical keyboard.

#include "deadline.h"
#include "ordinary_keyboard.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/session_held_modifiers.h"
#include "platform/linux/keyboard/uinput_key_device.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "process.h"
#include "virtual_pad.h"

#include <gtest/gtest.h>
#include <linux/input.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* seatProgram = "/usr/sbin/seatd";
constexpr const char* swayProgram = "/usr/bin/sway";
constexpr const char* folder = "/run/sway";
constexpr const char* socketPath = "/run/sway/ipc";
constexpr const char* configuration = "/run/sway/config";

constexpr std::uint64_t control = 0x40000;
constexpr std::uint16_t t = 17;

// Runs sway, which reads the kernel's keyboards through a seat daemon and draws to no screen.
class SwayKeyboardTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* const program : {seatProgram, swayProgram}) {
            if (!fs::exists(program)) {
                GTEST_SKIP() << "no " << program << " is installed";
            }
        }
        auto ours = std::make_unique<UinputKeyDevice>();
        ASSERT_TRUE(ours->plugIn());
        device = std::move(ours);
        ASSERT_EQ(Process({"/usr/bin/udevadm", "settle"}).waitForEnd(), 0);
        startSway();
    }

    void startSway() {
        fs::remove_all(folder); // removes the socket of an earlier sway
        fs::create_directory(folder);
        std::ofstream(configuration) << "seat seat0 fallback true\n"
                                        "bindsym Control+t exec echo typed Control T\n"
                                        "bindsym Control+Shift+t exec echo typed Control Shift T\n"
                                        "bindsym Shift+b exec echo typed Shift B\n"
                                        "bindsym b exec echo typed B\n"
                                        "exec_always echo configured\n";
        ASSERT_EQ(Process({"/usr/bin/chown", "-R", "nobody", folder}).waitForEnd(), 0);
        fs::permissions(folder, fs::perms::owner_all);
        seat.emplace(std::vector<std::string>{"/usr/bin/env", "SEATD_VTBOUND=0", seatProgram, "-u",
                                              "nobody"});
        ASSERT_TRUE(seat->waitForError("seatd started"));
        sway.emplace(
            std::vector<std::string>{
                "/usr/bin/env", "LIBSEAT_BACKEND=seatd", "WLR_BACKENDS=headless,libinput",
                "WLR_RENDERER=pixman", std::string("XDG_RUNTIME_DIR=") + folder,
                std::string("SWAYSOCK=") + socketPath, swayProgram, "-c", configuration},
            Process::User::nobody);
        ASSERT_TRUE(sway->waitForOutput("configured"));
    }

    void press(int key) { users.write({{EV_KEY, static_cast<std::uint16_t>(key), 1}}); }
    void release(int key) { users.write({{EV_KEY, static_cast<std::uint16_t>(key), 0}}); }

    static void postControlT(UinputKeyboard& keyboard) {
        const KeyEvent events[] = {{t, true, control}, {t, false, control}};
        keyboard.post(events);
    }

    // Returns the next line about a typed key.
    std::string nextTyped() {
        const std::string all = "typed ";
        EXPECT_TRUE(sway->waitForLines(all, ++countOfTyped, std::chrono::seconds(60)));
        const std::size_t last = sway->output().rfind(all);
        return last != std::string::npos
                   ? sway->output().substr(last, sway->output().find('\n', last) - last)
                   : "";
    }

    void holdShift() {
        press(KEY_LEFTSHIFT);
        press(KEY_B);
        release(KEY_B);
        EXPECT_EQ(nextTyped(), "typed Shift B");
    }

    // Types Control+T until sway reports it without the held Shift. sway reads its socket and the
    // keyboards in any order, so it may handle the first shortcuts before the command that gives
    // the virtual keyboard its own keymap.
    bool becomesPlain(UinputKeyboard& keyboard) {
        const Deadline deadline;
        while (!deadline.passed()) {
            postControlT(keyboard);
            if (nextTyped() == "typed Control T") {
                return true;
            }
        }
        return false;
    }

    static std::string reply(const char* question) {
        Process message({"/usr/bin/swaymsg", "-s", socketPath, "-r", "-t", question});
        EXPECT_EQ(message.waitForEnd(), 0);
        return message.output();
    }

    // Returns sway's repeat and layout settings of the keyboard, sorted.
    static std::vector<std::string> keyboardSettings(const std::string& name) {
        const auto inputs = nlohmann::json::parse(reply("get_inputs"));
        std::vector<std::string> settings;
        for (const auto& input : inputs) {
            if (input.at("name") != name || input.at("type") != "keyboard") {
                continue;
            }
            for (const auto& [key, value] : input.items()) {
                if (key.starts_with("repeat_") || key.starts_with("xkb_")) {
                    settings.push_back(key + " " + value.dump());
                }
            }
        }
        return settings;
    }

    static bool waitForOurKeyboard(bool isThere) {
        const Deadline deadline;
        while (!deadline.passed()) {
            Process question({"/usr/bin/swaymsg", "-s", socketPath, "-t", "get_inputs"});
            question.waitForEnd();
            if ((question.output().find("Glidemap_Keyboard") != std::string::npos) == isThere) {
                return true;
            }
        }
        return false;
    }

    VirtualPad users{ordinaryKeyboard(), "usb/keyboard"};
    std::unique_ptr<UinputKeyDevice> device;
    std::optional<Process> seat;
    std::optional<Process> sway;
    std::size_t countOfTyped = 0;
};

// Shows the problem that the separate keyboard group in the next test solves.
TEST_F(SwayKeyboardTest, HeldShiftJoinsTheShortcutWithoutASeparateKeyboardGroup) {
    UinputKeyboard keyboard(std::move(device), nullptr);
    postControlT(keyboard);
    EXPECT_EQ(nextTyped(), "typed Control T");
    press(KEY_LEFTSHIFT);
    press(KEY_B);
    release(KEY_B);
    EXPECT_EQ(nextTyped(), "typed Shift B");
    postControlT(keyboard);
    EXPECT_EQ(nextTyped(), "typed Control Shift T");
    release(KEY_LEFTSHIFT);
}

TEST_F(SwayKeyboardTest, HeldShiftDoesNotJoinTheShortcutAndStaysHeld) {
    setenv("SWAYSOCK", socketPath, 1);
    DesktopThread thread;
    UinputKeyboard keyboard(std::move(device), heldModifiersOfThisSession(thread));
    holdShift();
    EXPECT_TRUE(becomesPlain(keyboard));
    for (int time = 0; time < 3; ++time) {
        postControlT(keyboard);
        EXPECT_EQ(nextTyped(), "typed Control T");
        press(KEY_B);
        release(KEY_B);
        EXPECT_EQ(nextTyped(), "typed Shift B");
    }
    release(KEY_LEFTSHIFT);
    press(KEY_B);
    release(KEY_B);
    EXPECT_EQ(nextTyped(), "typed B");
}

// The program separates its keyboard from the others with a keymap of its own. A repeat setting of
// its own would have the same effect, but some versions of sway apply such a setting to all
// keyboards.
TEST_F(SwayKeyboardTest, OtherKeyboardsKeepTheirSettings) {
    const std::vector<std::string> before = keyboardSettings("Ordinary Keyboard");
    ASSERT_FALSE(before.empty());
    setenv("SWAYSOCK", socketPath, 1);
    DesktopThread thread;
    UinputKeyboard keyboard(std::move(device), heldModifiersOfThisSession(thread));
    holdShift();
    EXPECT_TRUE(becomesPlain(keyboard));
    EXPECT_EQ(keyboardSettings("Ordinary Keyboard"), before);
    release(KEY_LEFTSHIFT);
}

TEST_F(SwayKeyboardTest, HeldShiftDoesNotJoinANewKeyboardsShortcutAfterAReload) {
    setenv("SWAYSOCK", socketPath, 1);
    DesktopThread thread;
    UinputKeyboard keyboard(std::move(device), heldModifiersOfThisSession(thread));
    holdShift();
    EXPECT_TRUE(becomesPlain(keyboard));
    ASSERT_EQ(Process({"/usr/bin/swaymsg", "-s", socketPath, "reload"}).waitForEnd(), 0);
    ASSERT_TRUE(sway->waitForLines("configured", 2, std::chrono::seconds(60)));
    EXPECT_TRUE(becomesPlain(keyboard));
    keyboard.unplug();
    ASSERT_TRUE(waitForOurKeyboard(false));
    ASSERT_TRUE(keyboard.plugIn());
    ASSERT_TRUE(waitForOurKeyboard(true));
    EXPECT_TRUE(becomesPlain(keyboard));
    release(KEY_LEFTSHIFT);
}

} // namespace
} // namespace glidemap::test
