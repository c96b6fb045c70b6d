#include "core/gesture_category.h"
#include "core/gesture_type.h"
#include "kit/in_language.h"
#include "kit/printers.h"

#include <gtest/gtest.h>

#include <numeric>

namespace glidemap {
namespace {

using enum GestureType;
using Members = std::vector<GestureType>;

struct Row {
    GestureCategory category;
    const char* rawValue;
    const char* english;
    const char* chinese;
    const char* symbol;
    Members gestures;
};

const Row rows[] = {
    {GestureCategory::circle,
     "circle",
     "Circle",
     "画圆",
     "circle.dashed",
     {drawCircle, drawCircleClockwise, drawCircleCounterclockwise}},
    {GestureCategory::fixAndTap,
     "fixAndTap",
     "Hold + Tap",
     "单指固定 + 点按",
     "hand.point.right",
     {fixAndTapRight, fixAndTapLeft, fixAndTapAbove, fixAndTapBelow}},
    {GestureCategory::tap,
     "tap",
     "Taps",
     "多指轻点",
     "hand.tap",
     {twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap}},
    {GestureCategory::doubleTap,
     "doubleTap",
     "Double Taps",
     "多指双击轻点",
     "hand.tap.fill",
     {twoFingerDoubleTap, threeFingerDoubleTap, fourFingerDoubleTap}},
    {GestureCategory::click,
     "click",
     "Clicks",
     "多指按压点击",
     "cursorarrow.click.2",
     {twoFingerClick, threeFingerClick, fourFingerClick}},
    {GestureCategory::swipe,
     "swipe",
     "Swipes",
     "多指滑动",
     "hand.draw",
     {twoFingerSwipeLeft, twoFingerSwipeRight, twoFingerSwipeUp, twoFingerSwipeDown,
      threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown,
      fourFingerSwipeLeft, fourFingerSwipeRight, fourFingerSwipeUp, fourFingerSwipeDown,
      fiveFingerSwipeLeft, fiveFingerSwipeRight, fiveFingerSwipeUp, fiveFingerSwipeDown}},
    {GestureCategory::edgeSwipe,
     "edgeSwipe",
     "Edge Swipes",
     "边缘滑入",
     "arrow.right.to.line",
     {edgeSwipeFromLeft, edgeSwipeFromRight, edgeSwipeFromTop, edgeSwipeFromBottom}},
    {GestureCategory::cornerTap,
     "cornerTap",
     "Corner Taps",
     "角落轻点",
     "viewfinder",
     {cornerTapTopLeft, cornerTapTopRight, cornerTapBottomLeft, cornerTapBottomRight}},
    {GestureCategory::pinchRotate,
     "pinchRotate",
     "Pinch & Rotate",
     "捏合 / 旋转",
     "arrow.down.left.and.arrow.up.right",
     {pinchIn, pinchOut, rotateClockwise, rotateCounterclockwise}},
    {GestureCategory::longPress,
     "longPress",
     "Long Press",
     "多指长按",
     "hand.raised",
     {twoFingerLongPress, threeFingerLongPress, fourFingerLongPress}},
};

TEST(GestureCategoryTest, TenCategoriesAreListedInDeclarationOrder) {
    ASSERT_EQ(std::size(rows), 10U);
    ASSERT_EQ(allGestureCategories.size(), 10U);
    for (std::size_t index = 0; index < allGestureCategories.size(); ++index) {
        EXPECT_EQ(allGestureCategories[index], rows[index].category);
    }
}

TEST(GestureCategoryTest, EachCategoryHasItsRawValueNamesAndSymbol) {
    for (const Row& row : rows) {
        EXPECT_EQ(rawValue(row.category), row.rawValue);
        EXPECT_EQ(symbolName(row.category), row.symbol);
        EXPECT_EQ(displayName(row.category), row.english);
        const test::InLanguage chinese("zh");
        EXPECT_EQ(displayName(row.category), row.chinese);
    }
}

TEST(GestureCategoryTest, EachCategoryListsItsGesturesInDeclarationOrder) {
    for (const Row& row : rows) {
        EXPECT_EQ(gestures(row.category), row.gestures) << row.rawValue;
    }
}

TEST(GestureCategoryTest, TapCategoryListsFourTapsInOrder) {
    EXPECT_EQ(gestures(GestureCategory::tap),
              (Members{twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap}));
}

TEST(GestureCategoryTest, LongPressCategoryListsThreeLongPressesInOrder) {
    EXPECT_EQ(gestures(GestureCategory::longPress),
              (Members{twoFingerLongPress, threeFingerLongPress, fourFingerLongPress}));
}

TEST(GestureCategoryTest, EveryGestureIsInExactlyOneCategory) {
    std::size_t members = 0;
    for (const GestureCategory category : allGestureCategories) {
        members += gestures(category).size();
    }
    EXPECT_EQ(members, allGestureTypes.size());
}

} // namespace
} // namespace glidemap
