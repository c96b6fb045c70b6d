#include "platform/linux/keyboard/key_codes.h"
#include "ui/recorder/key_choices.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::uint16_t> found(const char* text, KeyboardKind keyboard = KeyboardKind::pc) {
    std::vector<std::uint16_t> keys;
    for (const FoundKeys& group : findKeys(text, keyboard)) {
        keys.insert(keys.end(), group.keyCodes.begin(), group.keyCodes.end());
    }
    return keys;
}

std::string named(std::uint16_t keyCode, KeyboardKind keyboard, const char* code = "en") {
    Lang lang{nullptr};
    lang.setCode(code);
    return keyChoice(keyCode, lang, keyboard);
}

TEST(KeyChoicesTest, AreUniqueAndTypable) {
    const std::vector<std::uint16_t> keys = found("");
    EXPECT_EQ(std::set(keys.begin(), keys.end()).size(), keys.size());
    for (const std::uint16_t key : keys) {
        EXPECT_TRUE(kernelCodeOf(key)) << key;
    }
}

TEST(KeyChoicesTest, ContainEveryKeyWithALabel) {
    const std::vector<std::uint16_t> keys = found(" ");
    for (std::uint16_t key = 0; key < 128; ++key) {
        const bool isThere = std::ranges::find(keys, key) != keys.end();
        EXPECT_TRUE(isThere || keyLabel(key).empty()) << key;
    }
}

TEST(KeyChoicesTest, ContainRareKeys) {
    for (const char* const rare : {"F13", "F14", "F15", "F16", "F17", "F18", "F19", "F20", "Help",
                                   "keypad enter", "keypad 0", "num lock"}) {
        EXPECT_EQ(found(rare).size(), 1U) << rare;
    }
}

TEST(KeyChoicesTest, AreFoundByNameInEitherLanguageAndByLabel) {
    EXPECT_THAT(found("right arrow"), ElementsAre(124));
    EXPECT_THAT(found("右箭头"), ElementsAre(124));
    EXPECT_THAT(found("→"), ElementsAre(124));
    EXPECT_THAT(found("PRINT"), ElementsAre(105));
    EXPECT_THAT(found("PRINT", KeyboardKind::apple), IsEmpty());
    EXPECT_THAT(found("keypad 7"), ElementsAre(89));
    EXPECT_THAT(found("sixth"), IsEmpty());
}

TEST(KeyChoicesTest, ShowTheKeyNameAndTheLabel) {
    EXPECT_EQ(named(124, KeyboardKind::pc), "Right Arrow (→)");
    EXPECT_EQ(named(124, KeyboardKind::pc, "zh"), "右箭头 (→)");
    EXPECT_EQ(named(40, KeyboardKind::pc), "K");
    EXPECT_EQ(named(105, KeyboardKind::pc), "Print Screen (F13)");
    EXPECT_EQ(named(105, KeyboardKind::apple), "F13");
    EXPECT_EQ(named(114, KeyboardKind::pc), "Insert (Help)");
    EXPECT_EQ(named(106, KeyboardKind::pc), "F16");
    EXPECT_EQ(named(82, KeyboardKind::pc), "Keypad 0");
}

} // namespace

} // namespace glidemap
