#include "core/word_search.h"

#include "core/lang.h"

#include <algorithm>

namespace glidemap {

namespace {

// A language that stays the same when the user changes the interface's language.
struct FixedLanguage {
    explicit FixedLanguage(const std::string& code) { lang.setCode(code); }

    Lang lang{nullptr};
};

// Converts ASCII only: Chinese has no case, and the English names contain no other letters.
std::string lowered(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return text;
}

// Chinese input methods insert full-width spaces.
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

} // namespace

WordSearch::WordSearch(std::string_view text) : words(wordsOf(text)) {}

bool WordSearch::finds(const std::string& names) const {
    return std::ranges::all_of(
        words, [&](const std::string& word) { return names.find(word) != std::string::npos; });
}

// The line break between the two texts prevents a word from matching across them.
std::string searchableNames(const std::function<std::string(const Lang&)>& names) {
    static const FixedLanguage english("en");
    static const FixedLanguage chinese("zh");
    return lowered(names(english.lang) + "\n" + names(chinese.lang));
}

} // namespace glidemap
