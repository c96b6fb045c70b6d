#include "ui/recorder/key_choices.h"

#include "core/word_search.h"

#include <utility>

namespace glidemap {

namespace {

const std::vector<FoundKeys>& allKeys() {
    static const std::vector<FoundKeys> all = {
        {KeyGroup::arrows, {123, 124, 126, 125, 115, 119, 116, 121}},
        {KeyGroup::editing, {36, 48, 49, 51, 117, 53, 114, 110}},
        {KeyGroup::functions, {122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                               103, 111, 105, 107, 113, 106, 64, 79,  80,  90}},
        {KeyGroup::letters, {0,  11, 8,  2,  14, 3, 5,  4,  34, 38, 40, 37, 46,
                             45, 31, 35, 12, 15, 1, 17, 32, 9,  13, 7,  16, 6}},
        {KeyGroup::digits, {29, 18, 19, 20, 21, 23, 22, 26, 28, 25}},
        {KeyGroup::punctuation, {43, 47, 44, 41, 39, 33, 30, 42, 27, 24, 50}},
        {KeyGroup::keypad,
         {82, 83, 84, 85, 86, 87, 88, 89, 91, 92, 65, 76, 69, 78, 67, 75, 81, 71}},
    };
    return all;
}

std::string searchable(std::uint16_t keyCode, KeyGroup group, KeyboardKind keyboard) {
    return searchableNames([&](const Lang& lang) {
        return keyChoice(keyCode, lang, keyboard) + "\n" + label(group, lang);
    });
}

} // namespace

std::string label(KeyGroup group, const Lang& lang) {
    switch (group) {
    case KeyGroup::arrows:
        return lang.choose("Arrows and Pages", "方向与翻页");
    case KeyGroup::editing:
        return lang.choose("Editing", "编辑");
    case KeyGroup::functions:
        return lang.choose("Function Keys", "功能键");
    case KeyGroup::letters:
        return lang.choose("Letters", "字母");
    case KeyGroup::digits:
        return lang.choose("Digits", "数字");
    case KeyGroup::punctuation:
        return lang.choose("Punctuation", "标点");
    case KeyGroup::keypad:
        return lang.choose("Keypad", "小键盘");
    }
    return {};
}

std::vector<FoundKeys> findKeys(std::string_view text, KeyboardKind keyboard) {
    const WordSearch search(text);
    std::vector<FoundKeys> found;
    for (FoundKeys keys : allKeys()) {
        std::erase_if(keys.keyCodes, [&](std::uint16_t keyCode) {
            return !search.finds(searchable(keyCode, keys.group, keyboard));
        });
        if (!keys.keyCodes.empty()) {
            found.push_back(std::move(keys));
        }
    }
    return found;
}

std::string keyChoice(std::uint16_t keyCode, const Lang& lang, KeyboardKind keyboard) {
    const std::string words = keyWords(keyCode, lang, keyboard);
    const std::string sign = keyLabel(keyCode);
    return sign.empty() || sign == words ? words : words + " (" + sign + ")";
}

} // namespace glidemap
