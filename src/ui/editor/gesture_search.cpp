#include "ui/editor/gesture_search.h"

#include "core/lang.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace glidemap {

namespace {

// A fixed language, independent of the interface language.
struct FixedLanguage {
    explicit FixedLanguage(const std::string& code) { lang.setCode(code); }

    Lang lang{nullptr};
};

// Handles only ASCII: Chinese has no case, and the English names use no other letters.
std::string lowered(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return text;
}

// Chinese input methods type the ideographic space U+3000.
std::string withPlainSpaces(std::string text) {
    constexpr std::string_view ideographicSpace = "\u3000";
    for (std::size_t at = 0; (at = text.find(ideographicSpace, at)) != std::string::npos;) {
        text.replace(at, ideographicSpace.size(), " ");
    }
    return text;
}

std::vector<std::string> wordsOf(std::string_view text) {
    const std::string plain = lowered(withPlainSpaces(std::string(text)));
    std::vector<std::string> words;
    std::size_t end = 0;
    for (;;) {
        const std::size_t start = plain.find_first_not_of(" \t", end);
        if (start == std::string::npos) {
            return words;
        }
        end = std::min(plain.find_first_of(" \t", start), plain.size());
        words.push_back(plain.substr(start, end - start));
    }
}

// All searchable names of a gesture, one per line, so that no word matches across two names.
std::string searchable(GestureType gesture) {
    static const FixedLanguage english("en");
    static const FixedLanguage chinese("zh");
    std::string names;
    for (const Lang* const lang : {&english.lang, &chinese.lang}) {
        names += displayName(gesture, *lang) + "\n" + displayName(category(gesture), *lang) + "\n";
    }
    return lowered(names);
}

bool matches(GestureType gesture, const std::vector<std::string>& words) {
    static const std::array<std::string, allGestureTypes.size()> namesOfAll = [] {
        std::array<std::string, allGestureTypes.size()> all;
        std::ranges::transform(allGestureTypes, all.begin(), searchable);
        return all;
    }();
    const std::string& names = namesOfAll[static_cast<std::size_t>(gesture)];
    return std::ranges::all_of(
        words, [&](const std::string& word) { return names.find(word) != std::string::npos; });
}

} // namespace

std::vector<FoundGestures> findGestures(std::string_view text) {
    const std::vector<std::string> words = wordsOf(text);
    std::vector<FoundGestures> found;
    for (const GestureCategory group : allGestureCategories) {
        std::vector<GestureType> members = gestures(group);
        std::erase_if(members, [&](GestureType gesture) { return !matches(gesture, words); });
        if (!members.empty()) {
            found.push_back({.category = group, .gestures = std::move(members)});
        }
    }
    return found;
}

} // namespace glidemap
