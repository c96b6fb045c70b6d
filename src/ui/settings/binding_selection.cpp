#include "ui/settings/binding_selection.h"

#include <algorithm>

namespace glidemap {

std::optional<std::size_t> nearestWith(const Uuid& id, const BindingList& list, std::size_t index) {
    for (std::size_t distance = 0; distance <= std::max(list.size(), index); ++distance) {
        if (index + distance < list.size() && list[index + distance].id == id) {
            return index + distance;
        }
        if (distance <= index && index - distance < list.size() &&
            list[index - distance].id == id) {
            return index - distance;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> selectionAfter(const BindingList& before, const BindingList& after,
                                          std::optional<std::size_t> selected) {
    if (!selected || after.empty()) {
        return std::nullopt;
    }
    for (std::size_t index = *selected; index < before.size(); ++index) {
        if (const auto place = nearestWith(before[index].id, after, index)) {
            return place;
        }
    }
    for (std::size_t index = *selected; index-- > 0;) {
        if (const auto place = nearestWith(before[index].id, after, index)) {
            return place;
        }
    }
    return std::nullopt;
}

bool hasGrownByOne(const BindingList& before, const BindingList& after) {
    return after.size() == before.size() + 1 &&
           std::equal(before.begin(), before.end(), after.begin());
}

} // namespace glidemap
