// Tests the keyboard with a fake device and fake held modifiers, which record their calls.
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "typed_text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

constexpr std::uint64_t control = 0x40000;
constexpr KeyEvent shortcut[] = {{17, true, control}, {17, false, control}};
constexpr KeyEvent press[] = {{17, true, control}};
constexpr KeyEvent unknown[] = {{127, true, control}, {127, false, control}};
constexpr KeyEvent plain[] = {{12, true, 0}, {12, false, 0}};

using Log = std::vector<std::string>;

struct DeviceScript {
    Log log;
    bool isPermitted = true;
};

class ScriptedDevice : public KeyDevice {
public:
    explicit ScriptedDevice(DeviceScript& followed) : script(followed) {}
    ~ScriptedDevice() override { ScriptedDevice::unplug(); }

    bool plugIn() override {
        if (!isPlugged) {
            script.log.emplace_back(script.isPermitted ? "plug in" : "refused");
            isPlugged = script.isPermitted;
        }
        return isPlugged;
    }

    void unplug() override {
        if (std::exchange(isPlugged, false)) {
            script.log.emplace_back("unplug");
        }
    }

    bool write(std::span<const KeyChange> changes) override {
        script.log.push_back(typedText(changes));
        return true;
    }

private:
    DeviceScript& script;
    bool isPlugged = false;
};

// Keeps each request until the test either drops it or lets the keyboard type it unchanged.
class ScriptedHeldModifiers : public HeldModifiers {
public:
    explicit ScriptedHeldModifiers(Log& keptLog) : log(keptLog) {}
    ~ScriptedHeldModifiers() override { typePlainly(); }

    void type(std::vector<KeyChange> changes, std::function<void()> plainly) override {
        log.push_back("asked for " + typedText(changes));
        waiting.push_back(std::move(plainly));
    }

    void typePlainly() {
        for (const auto& each : std::exchange(waiting, {})) {
            each();
        }
    }

    void forget() { waiting.clear(); }

private:
    Log& log;
    std::vector<std::function<void()>> waiting;
};

TEST(UinputKeyboardTest, CreatesTheDeviceInTheConstructorAndOnlyOnce) {
    DeviceScript script;
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), nullptr);
        EXPECT_EQ(script.log, (Log{"plug in"}));
        keyboard.post(shortcut);
        keyboard.post(plain);
        EXPECT_TRUE(keyboard.plugIn());
    }
    EXPECT_EQ(script.log, (Log{"plug in", "+CTRL +T -T -CTRL", "+Q -Q", "unplug"}));
}

TEST(UinputKeyboardTest, UnknownKeyTypesNothing) {
    DeviceScript script;
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), nullptr);
        keyboard.post(unknown);
        keyboard.post({});
    }
    EXPECT_EQ(script.log, (Log{"plug in", "unplug"}));
}

TEST(UinputKeyboardTest, RetriesCreatingTheDeviceOnEachCallUntilPermissionIsGranted) {
    DeviceScript script{{}, false};
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), nullptr);
        keyboard.post(press);
        EXPECT_FALSE(keyboard.plugIn());
        script.isPermitted = true;
        keyboard.post(shortcut);
    }
    // The keyboard never typed the first press, so the key is not down.
    EXPECT_EQ(script.log,
              (Log{"refused", "refused", "refused", "plug in", "+CTRL +T -T -CTRL", "unplug"}));
}

TEST(UinputKeyboardTest, DestructorReleasesKeys) {
    DeviceScript script;
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), nullptr);
        keyboard.post(press);
    }
    EXPECT_EQ(script.log, (Log{"plug in", "+CTRL +T", "-T -CTRL", "unplug"}));
}

TEST(UinputKeyboardTest, UnpluggingReleasesKeysAndStopsTypingUntilPluggedIn) {
    DeviceScript script;
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), nullptr);
        keyboard.post(press);
        keyboard.unplug();
        keyboard.unplug();
        keyboard.post(shortcut);
        keyboard.plugIn();
        keyboard.post(plain);
    }
    EXPECT_EQ(script.log,
              (Log{"plug in", "+CTRL +T", "-T -CTRL", "unplug", "plug in", "+Q -Q", "unplug"}));
}

TEST(UinputKeyboardTest, ChecksHeldModifiersBeforeTyping) {
    DeviceScript script;
    {
        auto held = std::make_unique<ScriptedHeldModifiers>(script.log);
        ScriptedHeldModifiers& modifiers = *held;
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script), std::move(held));
        keyboard.post(shortcut);
        modifiers.typePlainly();
        keyboard.post(shortcut);
        modifiers.forget(); // drops the changes, as if HeldModifiers had typed them
        keyboard.post(unknown);
    }
    EXPECT_EQ(script.log, (Log{"plug in", "asked for +CTRL +T -T -CTRL", "+CTRL +T -T -CTRL",
                               "asked for +CTRL +T -T -CTRL", "unplug"}));
}

TEST(UinputKeyboardTest, DestructorTypesChangesThatWaitForHeldModifiers) {
    DeviceScript script;
    {
        UinputKeyboard keyboard(std::make_unique<ScriptedDevice>(script),
                                std::make_unique<ScriptedHeldModifiers>(script.log));
        keyboard.post(press);
    }
    EXPECT_EQ(script.log, (Log{"plug in", "asked for +CTRL +T", "+CTRL +T", "-T -CTRL", "unplug"}));
}

} // namespace
} // namespace glidemap
