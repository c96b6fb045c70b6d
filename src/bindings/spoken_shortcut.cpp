#include "bindings/spoken_shortcut.h"

#include "bindings/key_words.h"

namespace glidemap {

namespace {

std::string symbolOf(std::uint64_t bit) {
    switch (bit) {
    case modifier::control:
        return "⌃";
    case modifier::option:
        return "⌥";
    case modifier::shift:
        return "⇧";
    default:
        return "⌘";
    }
}

std::string joined(std::uint64_t held, KeyboardKind keyboard, char between) {
    std::string names;
    for (const std::uint64_t bit : allModifiers) {
        if ((held & bit) != 0) {
            names += modifierWord(bit, keyboard) + between;
        }
    }
    return names;
}

// Returns the key's label. For a key without a label, returns words instead of the number, which
// means nothing to the user.
std::string labelOrWords(std::uint16_t keyCode, KeyboardKind keyboard) {
    static const Lang english{nullptr};
    const std::string label = keyLabel(keyCode);
    return label.empty() ? keyWords(keyCode, english, keyboard) : label;
}

} // namespace

std::string modifierSymbols(std::uint64_t held) {
    std::string symbols;
    for (const std::uint64_t bit : allModifiers) {
        if ((held & bit) != 0) {
            symbols += symbolOf(bit);
        }
    }
    return symbols;
}

std::string spokenShortcut(const KeyShortcut& shortcut, const Lang& lang, KeyboardKind keyboard) {
    return joined(shortcut.modifiers, keyboard, ' ') + keyWords(shortcut.keyCode, lang, keyboard);
}

std::string writtenShortcut(const KeyShortcut& shortcut, KeyboardKind keyboard) {
    return keyboard == KeyboardKind::pc ? joined(shortcut.modifiers, keyboard, '+') +
                                              labelOrWords(shortcut.keyCode, keyboard)
                                        : std::string();
}

} // namespace glidemap
