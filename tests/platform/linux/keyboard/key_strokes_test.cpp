#include "platform/linux/keyboard/key_strokes.h"
#include "typed_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap {
namespace {

constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t control = 0x40000;
constexpr std::uint64_t option = 0x80000;
constexpr std::uint64_t command = 0x100000;

constexpr std::uint16_t q = 12;
constexpr std::uint16_t t = 17;
constexpr std::uint16_t leftShift = 56;
constexpr std::uint16_t rightShift = 60;
constexpr std::uint16_t capsLock = 57;
constexpr std::uint16_t noKey = 127;

using Events = std::vector<KeyEvent>;

Events stroke(std::uint16_t key, std::uint64_t flags) {
    return {{key, true, flags}, {key, false, flags}};
}

Events operator+(Events first, const Events& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

struct Row {
    const char* name;
    Events events;
    const char* typed;
};

const Row rows[] = {
    {"nothing", {}, ""},
    {"a key alone", stroke(t, 0), "+T -T"},
    {"shift", stroke(t, shift), "+SHIFT +T -T -SHIFT"},
    {"control", stroke(t, control), "+CTRL +T -T -CTRL"},
    {"option", stroke(t, option), "+ALT +T -T -ALT"},
    {"command", stroke(t, command), "+META +T -T -META"},
    {"all four", stroke(t, shift | control | option | command),
     "+SHIFT +CTRL +ALT +META +T -T -META -ALT -CTRL -SHIFT"},
    {"flags that are not modifiers", stroke(t, ~(shift | control | option | command)), "+T -T"},
    {"every flag", stroke(t, ~std::uint64_t{0}),
     "+SHIFT +CTRL +ALT +META +T -T -META -ALT -CTRL -SHIFT"},
    {"two strokes", stroke(q, control) + stroke(t, control), "+CTRL +Q -Q -CTRL +CTRL +T -T -CTRL"},
    {"a key that does not exist", stroke(noKey, control), ""},
    {"a key that does not exist after one that does", stroke(t, control) + stroke(noKey, 0), ""},
    {"the release of a key that does not exist", {{t, true, 0}, {noKey, false, 0}}, ""},
    {"a release without a press", {{t, false, control}}, ""},
    {"a press without a release", {{t, true, control}}, "+CTRL +T"},
    {"pressed twice, released twice", stroke(t, 0) + stroke(t, 0), "+T -T +T -T"},
    {"pressed twice in a row",
     {{t, true, control}, {t, true, 0}, {t, false, 0}, {t, false, 0}},
     "+CTRL +T -T -CTRL"},
    {"the release's flags do not matter",
     {{t, true, control}, {t, false, shift}},
     "+CTRL +T -T -CTRL"},
    {"nested strokes, same modifiers",
     {{q, true, control}, {t, true, control}, {t, false, control}, {q, false, control}},
     "+CTRL +Q +T -T -Q -CTRL"},
    {"nested strokes, other modifiers",
     {{q, true, control | shift}, {t, true, control | option}, {t, false, 0}, {q, false, 0}},
     "+SHIFT +CTRL +Q -SHIFT +ALT +T -T -Q -ALT -CTRL"},
    {"a modifier typed as a key", stroke(leftShift, 0), "+SHIFT -SHIFT"},
    {"a modifier with its own flag", stroke(leftShift, shift), "+SHIFT -SHIFT"},
    {"the right modifier with its own flag", stroke(rightShift, shift), "+RIGHTSHIFT -RIGHTSHIFT"},
    {"a modifier with the flag of another", stroke(leftShift, control),
     "+CTRL +SHIFT -SHIFT -CTRL"},
    {"caps lock is an ordinary key", stroke(capsLock, control), "+CTRL +CAPSLOCK -CAPSLOCK -CTRL"},
    {"a modifier typed as a key also modifies others",
     {{leftShift, true, 0}, {t, true, shift}, {t, false, shift}, {leftShift, false, 0}},
     "+SHIFT +T -T -SHIFT"},
    {"a modifier held for a key can be typed as a key",
     {{t, true, shift}, {leftShift, true, shift}, {leftShift, false, 0}, {t, false, 0}},
     "+SHIFT +T -SHIFT +SHIFT -SHIFT -T"},
};

TEST(KeyStrokesTest, FlagsBecomeModifierKeys) {
    for (const Row& row : rows) {
        KeyStrokes strokes;
        EXPECT_EQ(typedText(strokes.changesFor(row.events)), row.typed) << row.name;
    }
}

TEST(KeyStrokesTest, RemembersPressedKeysBetweenCalls) {
    KeyStrokes strokes;
    const Events down = {{t, true, control}};
    const Events up = {{t, false, control}};
    EXPECT_EQ(typedText(strokes.changesFor(down)), "+CTRL +T");
    EXPECT_EQ(typedText(strokes.changesFor(down)), "");
    EXPECT_EQ(typedText(strokes.changesFor(up)), "-T -CTRL");
    EXPECT_EQ(typedText(strokes.changesFor(up)), "");
}

TEST(KeyStrokesTest, RejectedEventListLeavesNoKeyDown) {
    KeyStrokes strokes;
    const Events events = {{t, true, control}, {noKey, true, 0}};
    EXPECT_EQ(typedText(strokes.changesFor(events)), "");
    EXPECT_EQ(typedText(strokes.releaseAll()), "");
}

TEST(KeyStrokesTest, ReleaseAllReleasesEveryKey) {
    KeyStrokes strokes;
    const Events events = {{q, true, control}, {t, true, control | shift}};
    EXPECT_EQ(typedText(strokes.changesFor(events)), "+CTRL +Q +SHIFT +T");
    EXPECT_EQ(typedText(strokes.releaseAll()), "-T -Q -SHIFT -CTRL");
    EXPECT_EQ(typedText(strokes.releaseAll()), "");
}

} // namespace
} // namespace glidemap
