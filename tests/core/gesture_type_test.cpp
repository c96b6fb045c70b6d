#include "core/gesture_type.h"
#include "kit/in_language.h"
#include "kit/printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>

namespace glidemap {
namespace {

using enum GestureType;
using test::InLanguage;

struct CatalogueRow {
    GestureType gesture;
    const char* rawValue;
    GestureCategory category;
    const char* english;
    const char* chinese;
};

// The whole catalogue, written a second time. Raw values are a stored format and users read the
// names, so a test must fail if a raw value or a name changes by accident.
const CatalogueRow catalogue[] = {
    {drawCircle, "drawCircle", GestureCategory::circle, "Draw Circle (any direction)",
     "单指画圆（任意方向）"},
    {drawCircleClockwise, "drawCircleClockwise", GestureCategory::circle, "Draw Circle (clockwise)",
     "单指画圆（顺时针）"},
    {drawCircleCounterclockwise, "drawCircleCounterclockwise", GestureCategory::circle,
     "Draw Circle (counter-clockwise)", "单指画圆（逆时针）"},
    {fixAndTapRight, "fixAndTapRight", GestureCategory::fixAndTap, "Hold + Tap Right",
     "单指固定 + 右侧点按"},
    {fixAndTapLeft, "fixAndTapLeft", GestureCategory::fixAndTap, "Hold + Tap Left",
     "单指固定 + 左侧点按"},
    {fixAndTapAbove, "fixAndTapAbove", GestureCategory::fixAndTap, "Hold + Tap Above",
     "单指固定 + 上方点按"},
    {fixAndTapBelow, "fixAndTapBelow", GestureCategory::fixAndTap, "Hold + Tap Below",
     "单指固定 + 下方点按"},
    {twoFingerTap, "twoFingerTap", GestureCategory::tap, "Two-Finger Tap", "两指轻点"},
    {threeFingerTap, "threeFingerTap", GestureCategory::tap, "Three-Finger Tap", "三指轻点"},
    {fourFingerTap, "fourFingerTap", GestureCategory::tap, "Four-Finger Tap", "四指轻点"},
    {fiveFingerTap, "fiveFingerTap", GestureCategory::tap, "Five-Finger Tap", "五指轻点"},
    {twoFingerDoubleTap, "twoFingerDoubleTap", GestureCategory::doubleTap, "Two-Finger Double Tap",
     "两指双击轻点"},
    {threeFingerDoubleTap, "threeFingerDoubleTap", GestureCategory::doubleTap,
     "Three-Finger Double Tap", "三指双击轻点"},
    {fourFingerDoubleTap, "fourFingerDoubleTap", GestureCategory::doubleTap,
     "Four-Finger Double Tap", "四指双击轻点"},
    {twoFingerClick, "twoFingerClick", GestureCategory::click, "Two-Finger Click", "两指按压点击"},
    {threeFingerClick, "threeFingerClick", GestureCategory::click, "Three-Finger Click",
     "三指按压点击"},
    {fourFingerClick, "fourFingerClick", GestureCategory::click, "Four-Finger Click",
     "四指按压点击"},
    {twoFingerSwipeLeft, "twoFingerSwipeLeft", GestureCategory::swipe, "Two-Finger Swipe Left",
     "两指左滑"},
    {twoFingerSwipeRight, "twoFingerSwipeRight", GestureCategory::swipe, "Two-Finger Swipe Right",
     "两指右滑"},
    {twoFingerSwipeUp, "twoFingerSwipeUp", GestureCategory::swipe, "Two-Finger Swipe Up",
     "两指上滑"},
    {twoFingerSwipeDown, "twoFingerSwipeDown", GestureCategory::swipe, "Two-Finger Swipe Down",
     "两指下滑"},
    {threeFingerSwipeLeft, "threeFingerSwipeLeft", GestureCategory::swipe,
     "Three-Finger Swipe Left", "三指左滑"},
    {threeFingerSwipeRight, "threeFingerSwipeRight", GestureCategory::swipe,
     "Three-Finger Swipe Right", "三指右滑"},
    {threeFingerSwipeUp, "threeFingerSwipeUp", GestureCategory::swipe, "Three-Finger Swipe Up",
     "三指上滑"},
    {threeFingerSwipeDown, "threeFingerSwipeDown", GestureCategory::swipe,
     "Three-Finger Swipe Down", "三指下滑"},
    {fourFingerSwipeLeft, "fourFingerSwipeLeft", GestureCategory::swipe, "Four-Finger Swipe Left",
     "四指左滑"},
    {fourFingerSwipeRight, "fourFingerSwipeRight", GestureCategory::swipe,
     "Four-Finger Swipe Right", "四指右滑"},
    {fourFingerSwipeUp, "fourFingerSwipeUp", GestureCategory::swipe, "Four-Finger Swipe Up",
     "四指上滑"},
    {fourFingerSwipeDown, "fourFingerSwipeDown", GestureCategory::swipe, "Four-Finger Swipe Down",
     "四指下滑"},
    {fiveFingerSwipeLeft, "fiveFingerSwipeLeft", GestureCategory::swipe, "Five-Finger Swipe Left",
     "五指左滑"},
    {fiveFingerSwipeRight, "fiveFingerSwipeRight", GestureCategory::swipe,
     "Five-Finger Swipe Right", "五指右滑"},
    {fiveFingerSwipeUp, "fiveFingerSwipeUp", GestureCategory::swipe, "Five-Finger Swipe Up",
     "五指上滑"},
    {fiveFingerSwipeDown, "fiveFingerSwipeDown", GestureCategory::swipe, "Five-Finger Swipe Down",
     "五指下滑"},
    {edgeSwipeFromLeft, "edgeSwipeFromLeft", GestureCategory::edgeSwipe, "Edge Swipe from Left",
     "从左边缘滑入"},
    {edgeSwipeFromRight, "edgeSwipeFromRight", GestureCategory::edgeSwipe, "Edge Swipe from Right",
     "从右边缘滑入"},
    {edgeSwipeFromTop, "edgeSwipeFromTop", GestureCategory::edgeSwipe, "Edge Swipe from Top",
     "从上边缘滑入"},
    {edgeSwipeFromBottom, "edgeSwipeFromBottom", GestureCategory::edgeSwipe,
     "Edge Swipe from Bottom", "从下边缘滑入"},
    {cornerTapTopLeft, "cornerTapTopLeft", GestureCategory::cornerTap, "Top-Left Corner Tap",
     "左上角轻点"},
    {cornerTapTopRight, "cornerTapTopRight", GestureCategory::cornerTap, "Top-Right Corner Tap",
     "右上角轻点"},
    {cornerTapBottomLeft, "cornerTapBottomLeft", GestureCategory::cornerTap,
     "Bottom-Left Corner Tap", "左下角轻点"},
    {cornerTapBottomRight, "cornerTapBottomRight", GestureCategory::cornerTap,
     "Bottom-Right Corner Tap", "右下角轻点"},
    {pinchIn, "pinchIn", GestureCategory::pinchRotate, "Pinch In", "两指捏合（收拢）"},
    {pinchOut, "pinchOut", GestureCategory::pinchRotate, "Pinch Out", "两指张开（放大）"},
    {rotateClockwise, "rotateClockwise", GestureCategory::pinchRotate, "Rotate Clockwise",
     "两指顺时针旋转"},
    {rotateCounterclockwise, "rotateCounterclockwise", GestureCategory::pinchRotate,
     "Rotate Counter-clockwise", "两指逆时针旋转"},
    {twoFingerLongPress, "twoFingerLongPress", GestureCategory::longPress, "Two-Finger Long Press",
     "两指长按"},
    {threeFingerLongPress, "threeFingerLongPress", GestureCategory::longPress,
     "Three-Finger Long Press", "三指长按"},
    {fourFingerLongPress, "fourFingerLongPress", GestureCategory::longPress,
     "Four-Finger Long Press", "四指长按"},
};

struct DetailRow {
    std::vector<GestureType> gestures;
    const char* english;
    const char* chinese;
};

const DetailRow details[] = {
    {{drawCircle, drawCircleClockwise, drawCircleCounterclockwise},
     "Draw a full circle on the trackpad with one finger",
     "用一根手指在触控板上画一个完整的圆"},
    {{fixAndTapRight, fixAndTapLeft, fixAndTapAbove, fixAndTapBelow},
     "Hold one finger still, tap beside it with another finger",
     "一根手指按住不动，另一根手指在其旁边轻点一下"},
    {{twoFingerTap, threeFingerTap, fourFingerTap, fiveFingerTap},
     "Tap the trackpad with multiple fingers at once (no press)",
     "多根手指同时轻点触控板（不按压）"},
    {{twoFingerDoubleTap, threeFingerDoubleTap, fourFingerDoubleTap},
     "Two quick taps in a row; single taps of the same finger count are slightly delayed for "
     "disambiguation once bound",
     "多根手指快速连续轻点两次（绑定后同指数的单击会稍有延迟以作区分）"},
    {{twoFingerClick},
     "Physical click with two fingers (intercepts the system right-click menu)",
     "两根手指物理按压点击（会拦截系统右键菜单）"},
    {{threeFingerClick, fourFingerClick},
     "Physical click with multiple fingers (intercepts the system default behavior)",
     "多根手指同时物理按压点击（拦截系统默认行为）"},
    {{twoFingerSwipeLeft, twoFingerSwipeRight, twoFingerSwipeUp, twoFingerSwipeDown},
     "Quick two-finger swipe ⚠️ overlaps with system scrolling — may fire while scrolling, "
     "bind "
     "with care",
     "两指快速滑动 ⚠️ "
     "与系统双指滚动重叠，滚动页面时也可能触发，谨慎绑定"},
    {{threeFingerSwipeLeft, threeFingerSwipeRight, threeFingerSwipeUp, threeFingerSwipeDown,
      fourFingerSwipeLeft, fourFingerSwipeRight, fourFingerSwipeUp, fourFingerSwipeDown,
      fiveFingerSwipeLeft, fiveFingerSwipeRight, fiveFingerSwipeUp, fiveFingerSwipeDown},
     "Quick multi-finger swipe. If it clashes with a system gesture, disable that gesture in "
     "System Settings → Trackpad",
     "多指快速滑动。如与系统同款手势冲突，可在「系统设置 → 触控板」中关闭对应系统手势"},
    {{edgeSwipeFromLeft, edgeSwipeFromRight, edgeSwipeFromTop, edgeSwipeFromBottom},
     "Swipe inward quickly from the trackpad edge with one finger",
     "单指从触控板边缘快速滑入内部"},
    {{cornerTapTopLeft, cornerTapTopRight, cornerTapBottomLeft, cornerTapBottomRight},
     "Tap once in a corner region of the trackpad with one finger",
     "单指在触控板角落区域轻点一下"},
    {{pinchIn, pinchOut},
     "Pinch two fingers together or apart ⚠️ may conflict with system smart zoom",
     "两指相向捏合或反向张开 ⚠️ 可能与系统智能缩放冲突"},
    {{rotateClockwise, rotateCounterclockwise},
     "Hold two fingers down and rotate ⚠️ may conflict with the system rotate gesture",
     "两指按住并整体旋转 ⚠️ 可能与系统旋转手势冲突"},
    {{twoFingerLongPress, threeFingerLongPress, fourFingerLongPress},
     "Hold fingers still on the trackpad for ~0.8s (no press needed)",
     "多根手指按住触控板不动约 0.8 秒（无需按压）"},
};

TEST(GestureTypeTest, CatalogueHas48GesturesInDeclarationOrder) {
    ASSERT_EQ(std::size(catalogue), 48U);
    ASSERT_EQ(allGestureTypes.size(), 48U);
    for (std::size_t index = 0; index < allGestureTypes.size(); ++index) {
        EXPECT_EQ(allGestureTypes[index], catalogue[index].gesture) << index;
        EXPECT_EQ(static_cast<std::size_t>(catalogue[index].gesture), index);
    }
}

TEST(GestureTypeTest, RawValuesMatchTheStoredFormat) {
    for (const CatalogueRow& row : catalogue) {
        EXPECT_EQ(rawValue(row.gesture), row.rawValue);
        EXPECT_EQ(gestureTypeFromRawValue(row.rawValue), row.gesture);
    }
}

TEST(GestureTypeTest, EveryGestureHasTheExpectedCategory) {
    for (const CatalogueRow& row : catalogue) {
        EXPECT_EQ(category(row.gesture), row.category) << row.rawValue;
    }
}

TEST(GestureTypeTest, EveryNameIsInTheCurrentLanguage) {
    for (const CatalogueRow& row : catalogue) {
        EXPECT_EQ(displayName(row.gesture), row.english);
        const InLanguage chinese("zh");
        EXPECT_EQ(displayName(row.gesture), row.chinese);
    }
}

TEST(GestureTypeTest, EveryDetailIsInTheCurrentLanguage) {
    std::set<GestureType> seen;
    for (const DetailRow& row : details) {
        for (const GestureType gesture : row.gestures) {
            EXPECT_EQ(detail(gesture), row.english) << rawValue(gesture);
            const InLanguage chinese("zh");
            EXPECT_EQ(detail(gesture), row.chinese) << rawValue(gesture);
            seen.insert(gesture);
        }
    }
    EXPECT_EQ(seen.size(), 48U);
}

TEST(GestureTypeTest, ExplicitLanguageOverridesTheCurrentLanguage) {
    Lang named(nullptr);
    named.setCode("zh");
    EXPECT_EQ(displayName(twoFingerTap, named), "两指轻点");
    EXPECT_EQ(displayName(GestureCategory::circle, named), "画圆");
    EXPECT_EQ(detail(GestureType::drawCircle, named), "用一根手指在触控板上画一个完整的圆");
    const InLanguage chinese("zh");
    named.setCode("en");
    EXPECT_EQ(displayName(twoFingerTap, named), "Two-Finger Tap");
    EXPECT_EQ(displayName(GestureCategory::circle, named), "Circle");
    EXPECT_EQ(detail(GestureType::drawCircle, named),
              "Draw a full circle on the trackpad with one finger");
}

TEST(GestureTypeTest, EveryLanguageCodeExceptChineseShowsEnglish) {
    for (const char* code : {"en", "", "fr", "ZH", "zh-Hans", "zh "}) {
        const InLanguage language(code);
        EXPECT_EQ(displayName(twoFingerTap), "Two-Finger Tap") << code;
        EXPECT_EQ(detail(pinchIn),
                  "Pinch two fingers together or apart ⚠️ may conflict with system "
                  "smart zoom")
            << code;
    }
}

TEST(GestureTypeTest, RawValuesAreMatchedExactly) {
    for (const char* text : {"TwoFingerTap", "twofingertap", "TWOFINGERTAP", " twoFingerTap",
                             "twoFingerTap ", "twoFinger", "", "oneFingerTap", "drawcircle"}) {
        EXPECT_EQ(gestureTypeFromRawValue(text), std::nullopt) << text;
    }
}

TEST(GestureTypeTest, ClicksWithMoreThanTwoFingersHaveTheSameDetailText) {
    EXPECT_EQ(detail(twoFingerClick),
              "Physical click with two fingers (intercepts the system right-click menu)");
    EXPECT_EQ(detail(threeFingerClick), "Physical click with multiple fingers (intercepts the "
                                        "system default behavior)");
    EXPECT_EQ(detail(fourFingerClick), detail(threeFingerClick));
}

TEST(GestureTypeTest, SwipesWithMoreThanTwoFingersHaveTheSameDetailText) {
    EXPECT_EQ(detail(threeFingerSwipeUp), detail(fiveFingerSwipeDown));
    EXPECT_EQ(detail(threeFingerSwipeUp),
              "Quick multi-finger swipe. If it clashes with a system gesture, disable that gesture "
              "in System Settings → Trackpad");
    EXPECT_NE(detail(twoFingerSwipeUp), detail(threeFingerSwipeUp));
}

TEST(GestureTypeTest, WarningSignIsFollowedByTheEmojiVariationSelector) {
    const std::string warning = "\u26A0\uFE0F";
    for (const GestureType gesture : allGestureTypes) {
        const std::string text = detail(gesture);
        const bool isWarned = (gesture >= twoFingerSwipeLeft && gesture <= twoFingerSwipeDown) ||
                              category(gesture) == GestureCategory::pinchRotate;
        EXPECT_EQ(text.find(warning) != std::string::npos, isWarned) << rawValue(gesture);
    }
}

TEST(GestureTypeTest, GestureHasTheSymbolOfItsCategory) {
    for (const GestureType gesture : allGestureTypes) {
        EXPECT_EQ(symbolName(gesture), symbolName(category(gesture)));
    }
    EXPECT_EQ(symbolName(rotateClockwise), "arrow.down.left.and.arrow.up.right");
}

struct ShapeRow {
    std::optional<GestureType> gesture;
    GestureCategory category;
    int fingerCount;
    GestureDirection direction;
};

const ShapeRow shapes[] = {
    {std::nullopt, GestureCategory::tap, 1, GestureDirection::none},
    {twoFingerTap, GestureCategory::tap, 2, GestureDirection::none},
    {fiveFingerTap, GestureCategory::tap, 5, GestureDirection::none},
    {std::nullopt, GestureCategory::tap, 6, GestureDirection::none},
    {fourFingerDoubleTap, GestureCategory::doubleTap, 4, GestureDirection::none},
    {std::nullopt, GestureCategory::doubleTap, 5, GestureDirection::none},
    {std::nullopt, GestureCategory::click, 1, GestureDirection::none},
    {threeFingerClick, GestureCategory::click, 3, GestureDirection::none},
    {std::nullopt, GestureCategory::click, 5, GestureDirection::none},
    {std::nullopt, GestureCategory::swipe, 1, GestureDirection::left},
    {fiveFingerSwipeUp, GestureCategory::swipe, 5, GestureDirection::up},
    {std::nullopt, GestureCategory::swipe, 5, GestureDirection::none},
    {edgeSwipeFromTop, GestureCategory::edgeSwipe, 1, GestureDirection::up},
    {cornerTapBottomLeft, GestureCategory::cornerTap, 1, GestureDirection::bottomLeft},
    {rotateClockwise, GestureCategory::pinchRotate, 2, GestureDirection::clockwise},
    {std::nullopt, GestureCategory::longPress, 5, GestureDirection::none},
    {std::nullopt, GestureCategory::tap, -1, GestureDirection::none},
};

TEST(GestureTypeTest, IsFoundByCategoryFingerCountAndDirection) {
    for (const ShapeRow& row : shapes) {
        EXPECT_EQ(gestureFor(row.category, row.fingerCount, row.direction), row.gesture);
    }
    for (const GestureType gesture : allGestureTypes) {
        EXPECT_EQ(gestureFor(category(gesture), fingerCount(gesture), direction(gesture)), gesture)
            << rawValue(gesture);
    }
}

TEST(GestureTypeTest, OnlyTheThreeClickGesturesAreClicks) {
    for (const GestureType gesture : allGestureTypes) {
        EXPECT_EQ(isClick(gesture), gesture == twoFingerClick || gesture == threeFingerClick ||
                                        gesture == fourFingerClick)
            << rawValue(gesture);
    }
}

} // namespace
} // namespace glidemap
