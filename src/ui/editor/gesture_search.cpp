#include "ui/editor/gesture_search.h"

#include "core/lang.h"
#include "core/word_search.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace glidemap {

namespace {

std::string searchable(GestureType gesture) {
    return searchableNames([gesture](const Lang& lang) {
        return displayName(gesture, lang) + "\n" + displayName(category(gesture), lang);
    });
}

bool matches(GestureType gesture, const WordSearch& search) {
    static const std::array<std::string, allGestureTypes.size()> namesOfAll = [] {
        std::array<std::string, allGestureTypes.size()> all;
        std::ranges::transform(allGestureTypes, all.begin(), searchable);
        return all;
    }();
    return search.finds(namesOfAll[static_cast<std::size_t>(gesture)]);
}

} // namespace

std::vector<FoundGestures> findGestures(std::string_view text) {
    const WordSearch search(text);
    std::vector<FoundGestures> found;
    for (const GestureCategory group : allGestureCategories) {
        std::vector<GestureType> members = gestures(group);
        std::erase_if(members, [&](GestureType gesture) { return !matches(gesture, search); });
        if (!members.empty()) {
            found.push_back({.category = group, .gestures = std::move(members)});
        }
    }
    return found;
}

} // namespace glidemap
