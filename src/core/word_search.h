// Finds named things by the text that a person types: each word of the text must be found somewhere in their
// names, and upper and lower case are one.
//
// Thread:  any; plain values.
// Errors:  none; a text without words finds everything.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

class Lang;

class WordSearch {
public:
    explicit WordSearch(std::string_view text);

    bool isEmpty() const { return words.empty(); }

    // The names are as searchableNames() makes them.
    bool finds(const std::string& names) const;

private:
    std::vector<std::string> words;
};

// The function's texts in both languages, in one string.
std::string searchableNames(const std::function<std::string(const Lang&)>& names);

} // namespace glidemap
