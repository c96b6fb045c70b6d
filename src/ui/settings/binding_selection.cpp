#include "ui/settings/binding_selection.h"

#include <Qt>
#include <algorithm>

namespace glidemap {

std::optional<std::size_t> closestWithIdentifier(const Uuid& id, const BindingList& list,
                                                 std::size_t index) {
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
        if (const auto place = closestWithIdentifier(before[index].id, after, index)) {
            return place;
        }
    }
    for (std::size_t index = *selected; index-- > 0;) {
        if (const auto place = closestWithIdentifier(before[index].id, after, index)) {
            return place;
        }
    }
    return std::nullopt;
}

bool hasGrownByOne(const BindingList& before, const BindingList& after) {
    return after.size() == before.size() + 1 &&
           std::equal(before.begin(), before.end(), after.begin());
}

std::optional<std::size_t> selectionMovedBy(int key, std::optional<std::size_t> selected,
                                            std::size_t count, std::size_t pageLength) {
    const std::size_t from = selected.value_or(0);
    const auto back = [from](std::size_t places) {
        return from - std::min(from, places);
    };
    const auto forth = [from, last = count - 1](std::size_t places) {
        return std::min(last, from + places);
    };
    switch (key) {
    case Qt::Key_Up:
        return back(1);
    case Qt::Key_Down:
        return selected ? forth(1) : 0;
    case Qt::Key_PageUp:
        return back(pageLength);
    case Qt::Key_PageDown:
        return forth(pageLength);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count - 1;
    default:
        return std::nullopt;
    }
}

} // namespace glidemap
