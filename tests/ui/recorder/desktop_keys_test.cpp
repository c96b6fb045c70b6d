// Tests that the recorder records the keys that real desktops reserve for themselves, and that the
// desktops receive their keys again afterwards.
//
// Each desktop reserves Alt+F4, and closes the window when it is pressed.
#include "kit/patience.h"
#include "real_keys.h"
#include "typing_gnome_shell.h"
#include "typing_kwin.h"
#include "typing_sway.h"
#include "typing_x_server.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

namespace glidemap {

namespace {

using test::DesktopNames;
using test::Program;
using test::RealKeysTest;
using test::TypingGnomeShell;
using test::TypingKWin;
using test::TypingSway;
using test::TypingXServer;

template <class Desktop>
class DesktopKeysTest : public RealKeysTest<Desktop> {
protected:
    static constexpr bool isWayland = !std::is_same_v<Desktop, TypingXServer>;

    void SetUp() override {
        if (isWayland && !GLIDEMAP_QT_PUBLISHES_WAYLAND) {
            GTEST_SKIP() << "this Qt does not publish its connection to a Wayland compositor";
        }
        RealKeysTest<Desktop>::SetUp();
    }

    // Starts a recording, and waits until the desktop's keys reach the window.
    void recordAllKeys() {
        this->record();
        expectCaptured();
    }
    void expectCaptured() {
        this->window->writeLine("capture");
        expectAfterReleases("captured");
    }

    // Waits until the desktop has its keys again, which requires that all keys of the recording are
    // released.
    void expectReturned() {
        this->window->writeLine("return");
        this->expect("returned");
    }

    // After a key has closed another window, the release of its modifier may reach this window.
    void expectAfterReleases(const std::string& expected) {
        std::optional<std::string> line;
        do {
            line = this->window->nextLine();
        } while (line && line->starts_with("released "));
        EXPECT_EQ(line, expected);
    }

    std::unique_ptr<Program> anotherWindow() {
        auto other =
            std::make_unique<Program>(Program::Command{.words = {GLIDEMAP_RECORDER_WINDOW},
                                                       .environment = this->desktop->environment(),
                                                       .log = this->folder.path() / "other.log"});
        EXPECT_EQ(other->nextLine(), "active");
        this->expect("inactive");
        return other;
    }

    // Waits until the program reports that the desktop has closed its window. Until then, the
    // program must not receive F4.
    static void expectClosed(Program& program) {
        const std::string f4 = "pressed 16777267";
        std::optional<std::string> line;
        do {
            line = program.nextLine();
            EXPECT_NE(line, f4) << "the desktop has not got its keys back";
        } while (line && *line != "closed");
    }

    void typeTogether(int modifier, int key) {
        this->hold(modifier);
        this->type(key);
        this->release(modifier);
    }
    void typeAltF4() { typeTogether(KEY_LEFTALT, KEY_F4); }
};

using Desktops = testing::Types<TypingXServer, TypingSway, TypingKWin>;
TYPED_TEST_SUITE(DesktopKeysTest, Desktops, DesktopNames);

TYPED_TEST(DesktopKeysTest, BelongToTheDesktopBeforeARecording) {
    this->typeAltF4();
    this->expectClosed(*this->window);
}

TYPED_TEST(DesktopKeysTest, AreRecordedAndThenReturnedToTheDesktop) {
    this->recordAllKeys();
    this->typeAltF4();
    this->expectRecorded("118 80000");
    this->expectReturned();
    this->typeAltF4();
    this->expectClosed(*this->window);
}

// The second press of F4 stands in for the auto-repeats of a held F4, which must not reach the
// desktop.
TYPED_TEST(DesktopKeysTest, AreReturnedToTheDesktopOnceAllKeysAreReleased) {
    this->recordAllKeys();
    this->hold(KEY_LEFTALT);
    this->type(KEY_F4);
    this->expectRecorded("118 80000");
    this->type(KEY_F4);
    this->expect("pressed 16777267");
    this->expect("released 16777267");
    this->release(KEY_LEFTALT);
    this->expectReturned();
    this->typeAltF4();
    this->expectClosed(*this->window);
}

TYPED_TEST(DesktopKeysTest, AreReturnedToTheDesktopWhenRecordingIsCancelled) {
    this->recordAllKeys();
    this->type(KEY_ESC);
    this->expect("stopped");
    this->expectReturned();
    this->typeAltF4();
    this->expectClosed(*this->window);
}

TYPED_TEST(DesktopKeysTest, AreGrabbedOnlyWhileTheRecordingWindowHasTheFocus) {
    this->recordAllKeys();
    const auto other = this->anotherWindow();
    this->typeAltF4();
    this->expectClosed(*other);
    this->expectAfterReleases("active");
    this->expectCaptured();
    this->typeAltF4();
    this->expectRecorded("118 80000");
}

TYPED_TEST(DesktopKeysTest, AreReturnedToTheDesktopWhenTheProgramExits) {
    const auto other = this->anotherWindow();
    other->writeLine("record");
    EXPECT_EQ(other->nextLine(), "recording");
    other->writeLine("capture");
    EXPECT_EQ(other->nextLine(), "captured");
    other->kill();
    this->expect("active");
    this->typeAltF4();
    this->expectClosed(*this->window);
}

TYPED_TEST(DesktopKeysTest, OfManyKindsAreRecorded) {
    struct Row {
        int modifier;
        int key;
        const char* recorded;
    };
    const Row rows[] = {
        {KEY_LEFTALT, KEY_TAB, "48 80000"},     {KEY_LEFTMETA, KEY_L, "37 100000"},
        {KEY_LEFTMETA, KEY_LEFT, "123 100000"}, {KEY_LEFTMETA, KEY_RIGHT, "124 100000"},
        {KEY_LEFTMETA, KEY_TAB, "48 100000"},   {KEY_LEFTMETA, KEY_D, "2 100000"},
        {KEY_LEFTALT, KEY_SPACE, "49 80000"},   {KEY_LEFTALT, KEY_F2, "120 80000"},
    };
    for (const Row& row : rows) {
        this->recordAllKeys();
        this->typeTogether(row.modifier, row.key);
        this->expectRecorded(row.recorded);
        this->expectReturned();
    }
    this->expectTypedIntoWindow();
}

// GNOME Shell asks the user for permission, with a dialog that takes the focus from the window.
class GnomeDesktopKeysTest : public DesktopKeysTest<TypingGnomeShell> {
protected:
    void waitForQuestion() {
        expect("inactive");
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (evaluate("String(global.stage.key_focus && global.stage.key_focus.label)") !=
               R"("Allow")") {
            ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the shell does not ask";
        }
    }
    void expectNoQuestion() { EXPECT_EQ(evaluate("String(Main.modalCount)"), R"("0")"); }

private:
    std::string evaluate(const char* expression) const {
        return desktop->desktop().evaluate(expression);
    }
};

TEST_F(GnomeDesktopKeysTest, AreRecordedOnceTheUserAllowsCapturing) {
    record();
    waitForQuestion();
    type(KEY_ENTER); // presses "Allow"
    expectAfterReleases("active");
    expectCaptured();
    typeAltF4();
    expectRecorded("118 80000");
    recordAllKeys();
    expectNoQuestion();
    typeTogether(KEY_LEFTMETA, KEY_L);
    expectRecorded("37 100000");
    expectReturned();
    typeAltF4();
    expectClosed(*window);
}

TEST_F(GnomeDesktopKeysTest, DesktopKeepsItsKeysAndRecordingContinuesIfTheUserRefuses) {
    record();
    waitForQuestion();
    type(KEY_ESC); // dismisses the dialog
    expectAfterReleases("active");
    typeTogether(KEY_LEFTCTRL, KEY_K);
    expectRecorded("40 40000");
    record();
    typeTogether(KEY_LEFTCTRL, KEY_J);
    expectRecorded("38 40000");
    expectNoQuestion();
    record();
    typeAltF4();
    expectClosed(*window);
}

} // namespace

} // namespace glidemap
