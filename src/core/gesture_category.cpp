#include "core/gesture_category.h"

#include "core/gesture_type.h"
#include "core/lang.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace glidemap {

namespace {

struct CategoryEntry {
    std::string_view rawValue;
    std::string_view english;
    std::string_view chinese;
};

constexpr std::array<CategoryEntry, allGestureCategories.size()> categories = {{
    {"circle", "Circle", "画圆"},
    {"fixAndTap", "Hold + Tap", "单指固定 + 点按"},
    {"tap", "Taps", "多指轻点"},
    {"doubleTap", "Double Taps", "多指双击轻点"},
    {"click", "Clicks", "多指按压点击"},
    {"swipe", "Swipes", "多指滑动"},
    {"edgeSwipe", "Edge Swipes", "边缘滑入"},
    {"cornerTap", "Corner Taps", "角落轻点"},
    {"pinchRotate", "Pinch & Rotate", "捏合 / 旋转"},
    {"longPress", "Long Press", "多指长按"},
}};

const CategoryEntry& entry(GestureCategory category) {
    return categories[static_cast<std::size_t>(category)];
}

} // namespace

std::string_view rawValue(GestureCategory category) {
    return entry(category).rawValue;
}

std::string displayName(GestureCategory category) {
    return displayName(category, Lang::shared());
}

std::string displayName(GestureCategory category, const Lang& lang) {
    return lang.choose(entry(category).english, entry(category).chinese);
}

std::string_view symbolName(GestureCategory category) {
    return std::ranges::find(gestureTable, category, &GestureRow::category)->symbol;
}

std::vector<GestureType> gestures(GestureCategory wanted) {
    std::vector<GestureType> members;
    std::ranges::copy_if(allGestureTypes, std::back_inserter(members),
                         [wanted](GestureType gesture) { return category(gesture) == wanted; });
    return members;
}

} // namespace glidemap
