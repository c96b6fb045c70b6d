// The test has its own copy of the table, with the usual names of the keys, so that it detects an
// error in either table.
#include "dispatch/key_names.h"
#include "platform/linux/keyboard/key_codes.h"

#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <map>
#include <set>
#include <string>

namespace glidemap {
namespace {

const std::map<std::string_view, int> keysByName = {
    {"A", KEY_A},
    {"B", KEY_B},
    {"C", KEY_C},
    {"D", KEY_D},
    {"E", KEY_E},
    {"F", KEY_F},
    {"G", KEY_G},
    {"H", KEY_H},
    {"I", KEY_I},
    {"J", KEY_J},
    {"K", KEY_K},
    {"L", KEY_L},
    {"M", KEY_M},
    {"N", KEY_N},
    {"O", KEY_O},
    {"P", KEY_P},
    {"Q", KEY_Q},
    {"R", KEY_R},
    {"S", KEY_S},
    {"T", KEY_T},
    {"U", KEY_U},
    {"V", KEY_V},
    {"W", KEY_W},
    {"X", KEY_X},
    {"Y", KEY_Y},
    {"Z", KEY_Z},
    {"0", KEY_0},
    {"1", KEY_1},
    {"2", KEY_2},
    {"3", KEY_3},
    {"4", KEY_4},
    {"5", KEY_5},
    {"6", KEY_6},
    {"7", KEY_7},
    {"8", KEY_8},
    {"9", KEY_9},
    {"=", KEY_EQUAL},
    {"-", KEY_MINUS},
    {"]", KEY_RIGHTBRACE},
    {"[", KEY_LEFTBRACE},
    {"'", KEY_APOSTROPHE},
    {";", KEY_SEMICOLON},
    {"\\", KEY_BACKSLASH},
    {",", KEY_COMMA},
    {"/", KEY_SLASH},
    {".", KEY_DOT},
    {"`", KEY_GRAVE},
    {"F1", KEY_F1},
    {"F2", KEY_F2},
    {"F3", KEY_F3},
    {"F4", KEY_F4},
    {"F5", KEY_F5},
    {"F6", KEY_F6},
    {"F7", KEY_F7},
    {"F8", KEY_F8},
    {"F9", KEY_F9},
    {"F10", KEY_F10},
    {"F11", KEY_F11},
    {"F12", KEY_F12},
    {"F13", KEY_SYSRQ},
    {"F14", KEY_SCROLLLOCK},
    {"F15", KEY_PAUSE},
    {"↩", KEY_ENTER},
    {"⇥", KEY_TAB},
    {"Space", KEY_SPACE},
    {"⌫", KEY_BACKSPACE},
    {"⎋", KEY_ESC},
    {"Help", KEY_INSERT},
    {"↖", KEY_HOME},
    {"⇞", KEY_PAGEUP},
    {"⌦", KEY_DELETE},
    {"↘", KEY_END},
    {"⇟", KEY_PAGEDOWN},
    {"←", KEY_LEFT},
    {"→", KEY_RIGHT},
    {"↓", KEY_DOWN},
    {"↑", KEY_UP},
};

// Keys without a name in shortcut texts.
const std::map<std::uint16_t, int> namelessKeys = {
    {10, KEY_102ND},    {54, KEY_RIGHTMETA},  {55, KEY_LEFTMETA}, {56, KEY_LEFTSHIFT},
    {57, KEY_CAPSLOCK}, {58, KEY_LEFTALT},    {59, KEY_LEFTCTRL}, {60, KEY_RIGHTSHIFT},
    {61, KEY_RIGHTALT}, {62, KEY_RIGHTCTRL},  {63, KEY_FN},       {64, KEY_F17},
    {65, KEY_KPDOT},    {67, KEY_KPASTERISK}, {69, KEY_KPPLUS},   {71, KEY_NUMLOCK},
    {72, KEY_VOLUMEUP}, {73, KEY_VOLUMEDOWN}, {74, KEY_MUTE},     {75, KEY_KPSLASH},
    {76, KEY_KPENTER},  {78, KEY_KPMINUS},    {79, KEY_F18},      {80, KEY_F19},
    {81, KEY_KPEQUAL},  {82, KEY_KP0},        {83, KEY_KP1},      {84, KEY_KP2},
    {85, KEY_KP3},      {86, KEY_KP4},        {87, KEY_KP5},      {88, KEY_KP6},
    {89, KEY_KP7},      {90, KEY_F20},        {91, KEY_KP8},      {92, KEY_KP9},
    {93, KEY_YEN},      {94, KEY_RO},         {95, KEY_KPCOMMA},  {102, KEY_HANJA},
    {104, KEY_HANGEUL}, {106, KEY_F16},       {110, KEY_COMPOSE},
};

std::map<std::uint16_t, int> expectedTable() {
    std::map<std::uint16_t, int> expected = namelessKeys;
    for (const auto& [code, name] : KeyNames::map()) {
        expected[code] = keysByName.at(name);
    }
    return expected;
}

TEST(KeyCodesTest, OnlyKnownKeyCodesMapToKernelCodes) {
    const auto expected = expectedTable();
    ASSERT_EQ(keysByName.size(), 77U);
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto keyCode = static_cast<std::uint16_t>(code);
        const auto found = expected.find(keyCode);
        const auto answer = kernelCodeOf(keyCode);
        if (found == expected.end()) {
            EXPECT_EQ(answer, std::nullopt) << "key code " << code;
        } else {
            EXPECT_EQ(answer, found->second) << "key code " << code;
        }
    }
}

TEST(KeyCodesTest, KernelCodesMapBackToTheirKeyCodes) {
    std::map<int, std::uint16_t> expected;
    for (const auto& [keyCode, kernelCode] : expectedTable()) {
        ASSERT_TRUE(expected.emplace(kernelCode, keyCode).second) << "twice: " << kernelCode;
    }
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto found = expected.find(code);
        const auto answer = keyCodeOf(static_cast<std::uint16_t>(code));
        if (found == expected.end()) {
            EXPECT_EQ(answer, std::nullopt) << "kernel code " << code;
        } else {
            EXPECT_EQ(answer, found->second) << "kernel code " << code;
        }
    }
}

TEST(KeyCodesTest, KeyCodePairsAreCompleteAndAscending) {
    std::map<std::uint16_t, int> listed;
    std::vector<std::uint16_t> order;
    for (const KeyCodePair& pair : keyCodePairs()) {
        listed[pair.keyCode] = pair.kernelCode;
        order.push_back(pair.keyCode);
    }
    EXPECT_EQ(listed, expectedTable());
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

} // namespace
} // namespace glidemap
