// Tests the recorder with the key events of real window systems.
#include "real_keys.h"
#include "typing_sway.h"
#include "typing_x_server.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace glidemap {

namespace {

using test::DesktopNames;
using test::RealKeysTest;
using test::TypingSway;
using test::TypingXServer;

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

// Space clicks the focused button; when Space is released, recording begins.
TYPED_TEST(RealKeysTest, SpaceThatClicksTheButtonIsNotRecorded) {
    this->type(KEY_SPACE);
    this->expect("recording");
    this->type(KEY_SPACE);
    this->expectRecorded("49 0");
}

} // namespace

} // namespace glidemap
