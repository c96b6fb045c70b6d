// Finds items by name: every word that the user types must occur in the item's names, ignoring
// case.
//
// Thread:  any; plain values.
// Errors:  none; a text without words matches every item.
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

    // `names` must be a result of searchableNames().
    bool finds(const std::string& names) const;

private:
    std::vector<std::string> words;
};

// Calls `names` for English and for Chinese. Returns both results as one string in lower case.
std::string searchableNames(const std::function<std::string(const Lang&)>& names);

} // namespace glidemap
