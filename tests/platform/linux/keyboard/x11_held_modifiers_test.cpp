// Tests the release and the restoration of modifiers on a fake server. The test controls when the
// user releases keys; with a real server, that moment would be a race.
#include "platform/linux/keyboard/x11_held_modifiers.h"
#include "typed_text.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace glidemap {
namespace {

using Log = std::vector<std::string>;
using Changes = std::vector<KeyChange>;
using Codes = std::set<std::uint16_t>;

const Changes controlT = {
    {KEY_LEFTCTRL, true}, {KEY_T, true}, {KEY_T, false}, {KEY_LEFTCTRL, false}};

// State that the test shares with the fake server. The test accesses it only while the desktop
// thread is idle.
struct Script {
    Codes user;
    Codes ours;
    Log log;
    int looks = 0;
    int hearings = 0;
    std::function<void(int)> beforeLook; // called before each key check, with the check's number
    bool isListening = false;
    bool isAlive = true;
    bool hasNews = false;
};

// Like the real server, reports a modifier as held if it is down on the user's keyboard or on
// Glidemap's.
class ScriptedServer : public XKeyServer {
public:
    explicit ScriptedServer(Script& followed) : script(followed), news(eventfd(0, EFD_NONBLOCK)) {}
    ~ScriptedServer() override { close(news); }

    std::vector<std::uint16_t> modifiersDown() override {
        Codes down = script.user;
        down.insert(script.ours.begin(), script.ours.end());
        return {down.begin(), down.end()};
    }

    KeysDown keysDown() override {
        ++script.looks;
        if (script.beforeLook) {
            script.beforeLook(script.looks);
        }
        return {script.user, script.ours};
    }

    void type(std::span<const KeyChange> changes) override {
        script.log.push_back(typedText(changes));
    }

    bool canType(std::span<const KeyChange> /*changes*/) const override { return true; }

    void listenToReleases(bool listen) override {
        if (script.isListening != listen) {
            script.log.emplace_back(listen ? "listen" : "listen no more");
        }
        script.isListening = listen;
    }

    bool discardEvents() override {
        ++script.hearings;
        eventfd_t count = 0;
        if (script.isAlive) {
            eventfd_read(news, &count);
        }
        return std::exchange(script.hasNews, false);
    }
    int descriptor() const override { return news; }
    bool isAlive() const override { return script.isAlive; }

    void notify() const { eventfd_write(news, 1); }

private:
    Script& script;
    int news;
};

class X11HeldModifiersTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto scripted = std::make_unique<ScriptedServer>(script);
        server = scripted.get();
        held = std::make_unique<X11HeldModifiers>(desktop, std::move(scripted));
    }

    void type() {
        held->type(controlT, [this] { script.log.emplace_back("plainly"); });
        desktop.call([] {});
    }

    // The user releases all keys, and the server reports the releases.
    void userLetsGo() {
        desktop.call([this] {
            script.user.clear();
            script.hasNews = script.isListening;
            server->notify();
        });
        // The second task runs after the thread has processed the events that are pending now.
        desktop.call([] {});
        desktop.call([] {});
    }

    DesktopThread desktop;
    Script script;
    ScriptedServer* server = nullptr;
    std::unique_ptr<HeldModifiers> held;
};

TEST_F(X11HeldModifiersTest, LeavesTypingToUinputIfNoModifierIsHeld) {
    type();
    EXPECT_EQ(script.log, Log{"plainly"});
}

TEST_F(X11HeldModifiersTest, RestoredModifierStaysDownUntilTheUserReleasesIt) {
    script.user = {KEY_LEFTSHIFT};
    type();
    EXPECT_EQ(script.log, (Log{"-SHIFT +CTRL +T -T -CTRL", "listen", "+SHIFT"}));
    script.log.clear();
    userLetsGo();
    EXPECT_EQ(script.log, (Log{"-SHIFT", "listen no more"}));
}

TEST_F(X11HeldModifiersTest, DoesNotRestoreAModifierReleasedDuringTyping) {
    script.user = {KEY_LEFTSHIFT};
    script.beforeLook = [this](int look) {
        if (look == 2) {
            script.user.clear();
        }
    };
    type();
    EXPECT_EQ(script.log, (Log{"-SHIFT +CTRL +T -T -CTRL", "listen", "listen no more"}));
}

TEST_F(X11HeldModifiersTest, ReleasesARestoredModifierThatTheUserReleasedMeanwhile) {
    script.user = {KEY_LEFTSHIFT};
    script.beforeLook = [this](int look) {
        if (look == 3) {
            script.user.clear();
        }
    };
    type();
    EXPECT_EQ(script.log,
              (Log{"-SHIFT +CTRL +T -T -CTRL", "listen", "+SHIFT", "-SHIFT", "listen no more"}));
}

TEST_F(X11HeldModifiersTest, ReleasesTwoRestoredModifiersSeparately) {
    script.user = {KEY_LEFTSHIFT, KEY_RIGHTSHIFT};
    script.beforeLook = [this](int look) {
        if (look == 3) {
            script.user.erase(KEY_LEFTSHIFT);
        }
    };
    type();
    EXPECT_EQ(script.log, (Log{"-SHIFT -RIGHTSHIFT +CTRL +T -T -CTRL", "listen",
                               "+SHIFT +RIGHTSHIFT", "-SHIFT"}));
    script.log.clear();
    userLetsGo();
    EXPECT_EQ(script.log, (Log{"-RIGHTSHIFT", "listen no more"}));
}

TEST_F(X11HeldModifiersTest, SecondShortcutReleasesModifiersRestoredAfterTheFirst) {
    script.user = {KEY_LEFTSHIFT};
    type();
    script.log.clear();
    type();
    EXPECT_EQ(script.log, (Log{"-SHIFT +CTRL +T -T -CTRL", "+SHIFT"}));
}

// The notification of the release arrives later than the request for the next shortcut.
TEST_F(X11HeldModifiersTest, ReleasesARestoredModifierBeforeTheNextShortcut) {
    script.user = {KEY_LEFTCTRL};
    type();
    script.log.clear();
    script.user = {KEY_RIGHTSHIFT};
    type();
    EXPECT_EQ(script.log, (Log{"-CTRL", "listen no more", "-RIGHTSHIFT +CTRL +T -T -CTRL", "listen",
                               "+RIGHTSHIFT"}));
    script.log.clear();
    script.user.clear();
    type();
    EXPECT_EQ(script.log, (Log{"-RIGHTSHIFT", "listen no more", "plainly"}));
}

TEST_F(X11HeldModifiersTest, IgnoresModifiersOfGlidemapsKeyboard) {
    script.ours = {KEY_LEFTCTRL};
    type();
    EXPECT_EQ(script.log, Log{"plainly"});
}

TEST_F(X11HeldModifiersTest, DetectsAModifierHeldOnBothTheUsersAndGlidemapsKeyboards) {
    script.ours = {KEY_LEFTCTRL};
    script.user = {KEY_LEFTCTRL};
    type();
    EXPECT_EQ(script.log, (Log{"-CTRL +CTRL +T -T -CTRL", "listen", "+CTRL"}));
}

TEST_F(X11HeldModifiersTest, DestructorReleasesAllKeys) {
    script.user = {KEY_LEFTSHIFT};
    type();
    script.log.clear();
    held.reset();
    EXPECT_EQ(script.log, Log{"-SHIFT"});
}

// The socket of a lost connection stays readable, so the thread would never sleep if it still
// watched the socket.
TEST_F(X11HeldModifiersTest, StopsWatchingALostServer) {
    desktop.call([this] {
        script.isAlive = false;
        server->notify();
    });
    desktop.call([] {});
    desktop.call([] {});
    const int before = script.hearings;
    desktop.call([] {});
    desktop.call([] {});
    EXPECT_EQ(before, 1);
    EXPECT_EQ(script.hearings, before);
    type();
    EXPECT_EQ(script.log, Log{"plainly"});
}

} // namespace
} // namespace glidemap
