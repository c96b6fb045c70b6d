#include "bindings/spoken_shortcut.h"

#include "dispatch/key_names.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <string_view>

namespace glidemap {

namespace {

std::atomic<KeyboardKind> usual = KeyboardKind::apple;

struct Modifier {
    std::uint64_t mask;
    const char* symbol;
    const char* onApple;
    const char* onPC;
};

constexpr std::array modifiers = {
    Modifier{modifier::control, "⌃", "Control", "Ctrl"},
    Modifier{modifier::option, "⌥", "Option", "Alt"},
    Modifier{modifier::shift, "⇧", "Shift", "Shift"},
    Modifier{modifier::command, "⌘", "Command", "Super"},
};

// The words for keys whose label is a symbol, which a screen reader would misread or skip.
struct Word {
    std::string_view sign;
    const char* english;
    const char* chinese;
};

constexpr std::array words = {
    Word{"←", "Left Arrow", "左箭头"},
    Word{"→", "Right Arrow", "右箭头"},
    Word{"↑", "Up Arrow", "上箭头"},
    Word{"↓", "Down Arrow", "下箭头"},
    Word{"↩", "Return", "回车"},
    Word{"⇥", "Tab", "Tab"},
    Word{"⌫", "Backspace", "退格"},
    Word{"⌦", "Forward Delete", "向前删除"},
    Word{"⎋", "Escape", "Esc"},
    Word{"↖", "Home", "Home"},
    Word{"↘", "End", "End"},
    Word{"⇞", "Page Up", "Page Up"},
    Word{"⇟", "Page Down", "Page Down"},
    Word{"Space", "Space", "空格"},
    Word{"=", "Equals", "等号"},
    Word{"-", "Minus", "减号"},
    Word{"[", "Left Bracket", "左方括号"},
    Word{"]", "Right Bracket", "右方括号"},
    Word{"'", "Quote", "引号"},
    Word{";", "Semicolon", "分号"},
    Word{"\\", "Backslash", "反斜杠"},
    Word{",", "Comma", "逗号"},
    Word{"/", "Slash", "斜杠"},
    Word{".", "Period", "句号"},
    Word{"`", "Backquote", "反引号"},
};

std::string joined(std::uint64_t held, KeyboardKind keyboard, char between) {
    std::string names;
    for (const Modifier& each : modifiers) {
        if ((held & each.mask) != 0) {
            names += keyboard == KeyboardKind::pc ? each.onPC : each.onApple;
            names += between;
        }
    }
    return names;
}

} // namespace

void setUsualKeyboard(KeyboardKind kind) {
    usual = kind;
}

KeyboardKind usualKeyboard() {
    return usual;
}

std::string modifierSymbols(std::uint64_t held) {
    std::string symbols;
    for (const Modifier& each : modifiers) {
        if ((held & each.mask) != 0) {
            symbols += each.symbol;
        }
    }
    return symbols;
}

std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang, KeyboardKind keyboard) {
    const std::string sign = KeyNames::name(shortcut.keyCode);
    const auto word = std::ranges::find(words, std::string_view(sign), &Word::sign);
    return joined(shortcut.modifiers, keyboard, ' ') +
           (word != words.end() ? lang.choose(word->english, word->chinese) : sign);
}

std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard) {
    return keyboard == KeyboardKind::pc
               ? joined(shortcut.modifiers, keyboard, '+') + KeyNames::name(shortcut.keyCode)
               : std::string();
}

} // namespace glidemap
