// Tests the recorder with the key events of real window systems.
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "typing_sway.h"
#include "typing_x_server.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <memory>
#include <optional>
#include <string>

namespace glidemap {

namespace {

using test::Program;
using test::TypingSway;
using test::TypingXServer;

template <class Desktop>
class RealKeysTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = Desktop::whyNot(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
        desktop = std::make_unique<Desktop>();
        window = std::make_unique<Program>(Program::Command{.words = {GLIDEMAP_RECORDER_WINDOW},
                                                            .environment = desktop->environment(),
                                                            .log = folder.path() / "window.log"});
        expect("active");
    }

    void record() {
        window->writeLine("record");
        expect("recording");
    }
    void expect(const std::string& line) { EXPECT_EQ(window->nextLine(), line); }
    void expectRecorded(const std::string& what) { expect("recorded " + what); }

    void hold(int key) { desktop->key(static_cast<std::uint16_t>(key), true); }
    void release(int key) { desktop->key(static_cast<std::uint16_t>(key), false); }
    void type(int key) {
        hold(key);
        release(key);
    }

    // Types a key that must reach the window. If an earlier key had reached the window, it would be
    // reported first.
    void expectTypedIntoWindow() {
        type(KEY_Q);
        expect("pressed 81");
        expect("released 81");
    }

    test::RuntimeFolder folder;
    std::unique_ptr<test::TypingDesktop> desktop;
    std::unique_ptr<Program> window;
};

struct DesktopNames {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Desktop, TypingSway> ? "Sway" : "X11";
    }
};

using Desktops = testing::Types<TypingXServer, TypingSway>;
TYPED_TEST_SUITE(RealKeysTest, Desktops, DesktopNames);

TYPED_TEST(RealKeysTest, KeysAreRecordedByPhysicalKeyAndReachNoWindow) {
    struct Row {
        int key;
        const char* recorded;
    };
    const Row rows[] = {
        {KEY_A, "0 0"},       {KEY_SPACE, "49 0"},   {KEY_ENTER, "36 0"},     {KEY_TAB, "48 0"},
        {KEY_RIGHT, "124 0"}, {KEY_F5, "96 0"},      {KEY_KP7, "89 0"},       {KEY_KPENTER, "76 0"},
        {KEY_102ND, "10 0"},  {KEY_DELETE, "117 0"}, {KEY_BACKSPACE, "51 0"}, {KEY_GRAVE, "50 0"},
    };
    for (const Row& row : rows) {
        this->record();
        this->type(row.key);
        this->expectRecorded(row.recorded);
    }
    this->expectTypedIntoWindow();
}

TYPED_TEST(RealKeysTest, EachModifierSetsItsBit) {
    struct Row {
        int held;
        const char* recorded;
    };
    const Row rows[] = {
        {KEY_LEFTSHIFT, "40 20000"},  {KEY_RIGHTSHIFT, "40 20000"}, {KEY_LEFTCTRL, "40 40000"},
        {KEY_RIGHTCTRL, "40 40000"},  {KEY_LEFTALT, "40 80000"},    {KEY_LEFTMETA, "40 100000"},
        {KEY_RIGHTMETA, "40 100000"},
    };
    for (const Row& row : rows) {
        this->record();
        this->hold(row.held);
        this->type(KEY_K);
        this->release(row.held);
        this->expectRecorded(row.recorded);
    }
    this->expectTypedIntoWindow();
}

TYPED_TEST(RealKeysTest, CombinedModifiersAreRecordedTogether) {
    this->record();
    for (const int key : {KEY_LEFTALT, KEY_LEFTSHIFT, KEY_LEFTMETA}) {
        this->hold(key);
    }
    this->type(KEY_COMMA);
    for (const int key : {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTALT}) {
        this->release(key);
    }
    this->expectRecorded("43 1a0000");
    this->expectTypedIntoWindow();
}

TYPED_TEST(RealKeysTest, ModifiersAloneRecordNothing) {
    this->record();
    for (const int key : {KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_LEFTALT, KEY_LEFTMETA, KEY_RIGHTALT}) {
        this->type(key);
    }
    this->type(KEY_B);
    this->expectRecorded("11 0");
}

TYPED_TEST(RealKeysTest, EscapeAloneCancels) {
    this->record();
    this->type(KEY_ESC);
    this->expect("stopped");
    this->expectTypedIntoWindow();
}

TYPED_TEST(RealKeysTest, ShiftAndEscapeAreRecorded) {
    this->record();
    this->hold(KEY_LEFTSHIFT);
    this->type(KEY_ESC);
    this->release(KEY_LEFTSHIFT);
    this->expectRecorded("53 20000");
    this->expectTypedIntoWindow();
}

TYPED_TEST(RealKeysTest, CapsLockMakesEscapeRecordableAndAddsNoModifiers) {
    this->record();
    this->type(KEY_CAPSLOCK);
    this->type(KEY_ESC);
    this->expectRecorded("53 0");
    this->record();
    this->type(KEY_A);
    this->expectRecorded("0 0");
    this->record();
    this->type(KEY_CAPSLOCK);
    this->type(KEY_ESC);
    this->expect("stopped");
}

// The window manager reserves Alt+F4 and closes the window when it is pressed.
class X11DesktopKeysTest : public RealKeysTest<TypingXServer> {
protected:
    std::unique_ptr<Program> anotherWindow() {
        auto other =
            std::make_unique<Program>(Program::Command{.words = {GLIDEMAP_RECORDER_WINDOW},
                                                       .environment = desktop->environment(),
                                                       .log = folder.path() / "other.log"});
        EXPECT_EQ(other->nextLine(), "active");
        expect("inactive");
        return other;
    }

    // Waits until the program reports that the window manager has closed its window. Until then,
    // the program must not receive F4.
    static void expectClosed(Program& program) {
        const std::string f4 = "pressed 16777267";
        std::optional<std::string> line;
        do {
            line = program.nextLine();
            EXPECT_NE(line, f4) << "the window manager has not got its keys back";
        } while (line && *line != "closed");
    }

    void typeAltF4() {
        hold(KEY_LEFTALT);
        type(KEY_F4);
        release(KEY_LEFTALT);
    }
};

TEST_F(X11DesktopKeysTest, AreRecordedAndThenReturnedToTheDesktop) {
    record();
    typeAltF4();
    expectRecorded("118 80000");
    typeAltF4();
    expectClosed(*window);
}

TEST_F(X11DesktopKeysTest, AreReturnedToTheDesktopWhenRecordingIsCancelled) {
    record();
    type(KEY_ESC);
    expect("stopped");
    typeAltF4();
    expectClosed(*window);
}

TEST_F(X11DesktopKeysTest, AreGrabbedOnlyWhileTheRecordingWindowHasTheFocus) {
    record();
    const auto other = anotherWindow();
    typeAltF4();
    expectClosed(*other);
    expect("active");
    typeAltF4();
    expectRecorded("118 80000");
}

TEST_F(X11DesktopKeysTest, AreReturnedToTheDesktopWhenTheProgramExits) {
    const auto other = anotherWindow();
    other->writeLine("record");
    EXPECT_EQ(other->nextLine(), "recording");
    other->kill();
    expect("active");
    typeAltF4();
    expectClosed(*window);
}

// Space clicks the focused button; when Space is released, recording begins.
TYPED_TEST(RealKeysTest, SpaceThatClicksTheButtonIsNotRecorded) {
    this->type(KEY_SPACE);
    this->expect("recording");
    this->type(KEY_SPACE);
    this->expectRecorded("49 0");
}

} // namespace

} // namespace glidemap
