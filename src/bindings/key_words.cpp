#include "bindings/key_words.h"

#include "bindings/key_shortcut.h"
#include "dispatch/key_names.h"

#include <algorithm>
#include <array>

namespace glidemap {

namespace {

struct Word {
    std::uint16_t keyCode;
    const char* english;
    const char* chinese;
};

// Keys whose label is a symbol, which a screen reader would misread or skip, and keys without a
// label.
constexpr std::array words = {
    Word{24, "Equals", "等号"},
    Word{27, "Minus", "减号"},
    Word{30, "Right Bracket", "右方括号"},
    Word{33, "Left Bracket", "左方括号"},
    Word{36, "Return", "回车"},
    Word{39, "Quote", "引号"},
    Word{41, "Semicolon", "分号"},
    Word{42, "Backslash", "反斜杠"},
    Word{43, "Comma", "逗号"},
    Word{44, "Slash", "斜杠"},
    Word{47, "Period", "句号"},
    Word{48, "Tab", "Tab"},
    Word{49, "Space", "空格"},
    Word{50, "Backquote", "反引号"},
    Word{51, "Backspace", "退格"},
    Word{53, "Escape", "Esc"},
    Word{64, "F17", "F17"},
    Word{65, "Keypad Period", "小键盘小数点"},
    Word{67, "Keypad Multiply", "小键盘乘号"},
    Word{69, "Keypad Plus", "小键盘加号"},
    Word{71, "Keypad Clear", "小键盘清除"},
    Word{75, "Keypad Divide", "小键盘除号"},
    Word{76, "Keypad Enter", "小键盘回车"},
    Word{78, "Keypad Minus", "小键盘减号"},
    Word{79, "F18", "F18"},
    Word{80, "F19", "F19"},
    Word{81, "Keypad Equals", "小键盘等号"},
    Word{82, "Keypad 0", "小键盘 0"},
    Word{83, "Keypad 1", "小键盘 1"},
    Word{84, "Keypad 2", "小键盘 2"},
    Word{85, "Keypad 3", "小键盘 3"},
    Word{86, "Keypad 4", "小键盘 4"},
    Word{87, "Keypad 5", "小键盘 5"},
    Word{88, "Keypad 6", "小键盘 6"},
    Word{89, "Keypad 7", "小键盘 7"},
    Word{90, "F20", "F20"},
    Word{91, "Keypad 8", "小键盘 8"},
    Word{92, "Keypad 9", "小键盘 9"},
    Word{106, "F16", "F16"},
    Word{110, "Menu", "菜单键"},
    Word{115, "Home", "Home"},
    Word{116, "Page Up", "Page Up"},
    Word{117, "Forward Delete", "向前删除"},
    Word{119, "End", "End"},
    Word{121, "Page Down", "Page Down"},
    Word{123, "Left Arrow", "左箭头"},
    Word{124, "Right Arrow", "右箭头"},
    Word{125, "Down Arrow", "下箭头"},
    Word{126, "Up Arrow", "上箭头"},
};

// Keys that are labelled differently on PC keyboards.
constexpr std::array wordsOnPC = {
    Word{71, "Num Lock", "Num Lock"},        Word{105, "Print Screen", "Print Screen"},
    Word{107, "Scroll Lock", "Scroll Lock"}, Word{113, "Pause", "Pause"},
    Word{114, "Insert", "Insert"},           Word{117, "Delete", "Delete"},
};

template <std::size_t count>
const Word* find(const std::array<Word, count>& table, std::uint16_t keyCode) {
    const auto found = std::ranges::find(table, keyCode, &Word::keyCode);
    return found == table.end() ? nullptr : &*found;
}

} // namespace

std::string keyWords(std::uint16_t keyCode, const Lang& lang, KeyboardKind keyboard) {
    const Word* word = keyboard == KeyboardKind::pc ? find(wordsOnPC, keyCode) : nullptr;
    if (word == nullptr) {
        word = find(words, keyCode);
    }
    return word == nullptr ? KeyNames::name(keyCode) : lang.choose(word->english, word->chinese);
}

std::string keyLabel(std::uint16_t keyCode) {
    const auto found = KeyNames::map().find(keyCode);
    return found == KeyNames::map().end() ? std::string() : std::string(found->second);
}

std::string modifierWord(std::uint64_t bit, KeyboardKind keyboard) {
    const bool isPC = keyboard == KeyboardKind::pc;
    switch (bit) {
    case modifier::control:
        return isPC ? "Ctrl" : "Control";
    case modifier::option:
        return isPC ? "Alt" : "Option";
    case modifier::shift:
        return "Shift";
    case modifier::command:
        return isPC ? "Super" : "Command";
    default:
        return {};
    }
}

} // namespace glidemap
