#include "core/gesture_type.h"

#include "core/lang.h"

#include <algorithm>
#include <cstddef>

namespace glidemap {

namespace {

struct GestureEntry {
    std::string_view rawValue;
    GestureCategory category;
    std::string_view english;
    std::string_view chinese;
};

constexpr std::array<GestureEntry, allGestureTypes.size()> table = {{
    {"drawCircle", GestureCategory::circle, "Draw Circle (any direction)", "单指画圆（任意方向）"},
    {"drawCircleClockwise", GestureCategory::circle, "Draw Circle (clockwise)",
     "单指画圆（顺时针）"},
    {"drawCircleCounterclockwise", GestureCategory::circle, "Draw Circle (counter-clockwise)",
     "单指画圆（逆时针）"},
    {"fixAndTapRight", GestureCategory::fixAndTap, "Hold + Tap Right", "单指固定 + 右侧点按"},
    {"fixAndTapLeft", GestureCategory::fixAndTap, "Hold + Tap Left", "单指固定 + 左侧点按"},
    {"fixAndTapAbove", GestureCategory::fixAndTap, "Hold + Tap Above", "单指固定 + 上方点按"},
    {"fixAndTapBelow", GestureCategory::fixAndTap, "Hold + Tap Below", "单指固定 + 下方点按"},
    {"twoFingerTap", GestureCategory::tap, "Two-Finger Tap", "两指轻点"},
    {"threeFingerTap", GestureCategory::tap, "Three-Finger Tap", "三指轻点"},
    {"fourFingerTap", GestureCategory::tap, "Four-Finger Tap", "四指轻点"},
    {"fiveFingerTap", GestureCategory::tap, "Five-Finger Tap", "五指轻点"},
    {"twoFingerDoubleTap", GestureCategory::doubleTap, "Two-Finger Double Tap", "两指双击轻点"},
    {"threeFingerDoubleTap", GestureCategory::doubleTap, "Three-Finger Double Tap", "三指双击轻点"},
    {"fourFingerDoubleTap", GestureCategory::doubleTap, "Four-Finger Double Tap", "四指双击轻点"},
    {"twoFingerClick", GestureCategory::click, "Two-Finger Click", "两指按压点击"},
    {"threeFingerClick", GestureCategory::click, "Three-Finger Click", "三指按压点击"},
    {"fourFingerClick", GestureCategory::click, "Four-Finger Click", "四指按压点击"},
    {"twoFingerSwipeLeft", GestureCategory::swipe, "Two-Finger Swipe Left", "两指左滑"},
    {"twoFingerSwipeRight", GestureCategory::swipe, "Two-Finger Swipe Right", "两指右滑"},
    {"twoFingerSwipeUp", GestureCategory::swipe, "Two-Finger Swipe Up", "两指上滑"},
    {"twoFingerSwipeDown", GestureCategory::swipe, "Two-Finger Swipe Down", "两指下滑"},
    {"threeFingerSwipeLeft", GestureCategory::swipe, "Three-Finger Swipe Left", "三指左滑"},
    {"threeFingerSwipeRight", GestureCategory::swipe, "Three-Finger Swipe Right", "三指右滑"},
    {"threeFingerSwipeUp", GestureCategory::swipe, "Three-Finger Swipe Up", "三指上滑"},
    {"threeFingerSwipeDown", GestureCategory::swipe, "Three-Finger Swipe Down", "三指下滑"},
    {"fourFingerSwipeLeft", GestureCategory::swipe, "Four-Finger Swipe Left", "四指左滑"},
    {"fourFingerSwipeRight", GestureCategory::swipe, "Four-Finger Swipe Right", "四指右滑"},
    {"fourFingerSwipeUp", GestureCategory::swipe, "Four-Finger Swipe Up", "四指上滑"},
    {"fourFingerSwipeDown", GestureCategory::swipe, "Four-Finger Swipe Down", "四指下滑"},
    {"fiveFingerSwipeLeft", GestureCategory::swipe, "Five-Finger Swipe Left", "五指左滑"},
    {"fiveFingerSwipeRight", GestureCategory::swipe, "Five-Finger Swipe Right", "五指右滑"},
    {"fiveFingerSwipeUp", GestureCategory::swipe, "Five-Finger Swipe Up", "五指上滑"},
    {"fiveFingerSwipeDown", GestureCategory::swipe, "Five-Finger Swipe Down", "五指下滑"},
    {"edgeSwipeFromLeft", GestureCategory::edgeSwipe, "Edge Swipe from Left", "从左边缘滑入"},
    {"edgeSwipeFromRight", GestureCategory::edgeSwipe, "Edge Swipe from Right", "从右边缘滑入"},
    {"edgeSwipeFromTop", GestureCategory::edgeSwipe, "Edge Swipe from Top", "从上边缘滑入"},
    {"edgeSwipeFromBottom", GestureCategory::edgeSwipe, "Edge Swipe from Bottom", "从下边缘滑入"},
    {"cornerTapTopLeft", GestureCategory::cornerTap, "Top-Left Corner Tap", "左上角轻点"},
    {"cornerTapTopRight", GestureCategory::cornerTap, "Top-Right Corner Tap", "右上角轻点"},
    {"cornerTapBottomLeft", GestureCategory::cornerTap, "Bottom-Left Corner Tap", "左下角轻点"},
    {"cornerTapBottomRight", GestureCategory::cornerTap, "Bottom-Right Corner Tap", "右下角轻点"},
    {"pinchIn", GestureCategory::pinchRotate, "Pinch In", "两指捏合（收拢）"},
    {"pinchOut", GestureCategory::pinchRotate, "Pinch Out", "两指张开（放大）"},
    {"rotateClockwise", GestureCategory::pinchRotate, "Rotate Clockwise", "两指顺时针旋转"},
    {"rotateCounterclockwise", GestureCategory::pinchRotate, "Rotate Counter-clockwise",
     "两指逆时针旋转"},
    {"twoFingerLongPress", GestureCategory::longPress, "Two-Finger Long Press", "两指长按"},
    {"threeFingerLongPress", GestureCategory::longPress, "Three-Finger Long Press", "三指长按"},
    {"fourFingerLongPress", GestureCategory::longPress, "Four-Finger Long Press", "四指长按"},
}};

struct BilingualText {
    std::string_view english;
    std::string_view chinese;
};

constexpr BilingualText circleDetail = {"Draw a full circle on the trackpad with one finger",
                                        "用一根手指在触控板上画一个完整的圆"};
constexpr BilingualText fixAndTapDetail = {
    "Hold one finger still, tap beside it with another finger",
    "一根手指按住不动，另一根手指在其旁边轻点一下"};
constexpr BilingualText tapDetail = {"Tap the trackpad with multiple fingers at once (no press)",
                                     "多根手指同时轻点触控板（不按压）"};
constexpr BilingualText doubleTapDetail = {
    "Two quick taps in a row; single taps of the same finger count are slightly delayed for "
    "disambiguation once bound",
    "多根手指快速连续轻点两次（绑定后同指数的单击会稍有延迟以作区分）"};
constexpr BilingualText twoFingerClickDetail = {
    "Physical click with two fingers (intercepts the system right-click menu)",
    "两根手指物理按压点击（会拦截系统右键菜单）"};
constexpr BilingualText clickDetail = {
    "Physical click with multiple fingers (intercepts the system default behavior)",
    "多根手指同时物理按压点击（拦截系统默认行为）"};
constexpr BilingualText twoFingerSwipeDetail = {
    "Quick two-finger swipe ⚠️ overlaps with system scrolling — may fire while scrolling, "
    "bind "
    "with care",
    "两指快速滑动 ⚠️ "
    "与系统双指滚动重叠，滚动页面时也可能触发，谨慎绑定"};
constexpr BilingualText swipeDetail = {
    "Quick multi-finger swipe. If it clashes with a system gesture, disable that gesture in System "
    "Settings → Trackpad",
    "多指快速滑动。如与系统同款手势冲突，可在「系统设置 → 触控板」中关闭对应系统手势"};
constexpr BilingualText edgeSwipeDetail = {
    "Swipe inward quickly from the trackpad edge with one finger", "单指从触控板边缘快速滑入内部"};
constexpr BilingualText cornerTapDetail = {
    "Tap once in a corner region of the trackpad with one finger", "单指在触控板角落区域轻点一下"};
constexpr BilingualText pinchDetail = {
    "Pinch two fingers together or apart ⚠️ may conflict with system smart zoom",
    "两指相向捏合或反向张开 ⚠️ 可能与系统智能缩放冲突"};
constexpr BilingualText rotationDetail = {
    "Hold two fingers down and rotate ⚠️ may conflict with the system rotate gesture",
    "两指按住并整体旋转 ⚠️ 可能与系统旋转手势冲突"};
constexpr BilingualText longPressDetail = {
    "Hold fingers still on the trackpad for ~0.8s (no press needed)",
    "多根手指按住触控板不动约 0.8 秒（无需按压）"};

bool isTwoFingerSwipe(GestureType gesture) {
    return gesture >= GestureType::twoFingerSwipeLeft && gesture <= GestureType::twoFingerSwipeDown;
}

bool isPinch(GestureType gesture) {
    return gesture == GestureType::pinchIn || gesture == GestureType::pinchOut;
}

const GestureEntry& entry(GestureType gesture) {
    return table[static_cast<std::size_t>(gesture)];
}

const BilingualText& detailText(GestureType gesture) {
    switch (category(gesture)) {
    case GestureCategory::circle:
        return circleDetail;
    case GestureCategory::fixAndTap:
        return fixAndTapDetail;
    case GestureCategory::tap:
        return tapDetail;
    case GestureCategory::doubleTap:
        return doubleTapDetail;
    case GestureCategory::click:
        return gesture == GestureType::twoFingerClick ? twoFingerClickDetail : clickDetail;
    case GestureCategory::swipe:
        return isTwoFingerSwipe(gesture) ? twoFingerSwipeDetail : swipeDetail;
    case GestureCategory::edgeSwipe:
        return edgeSwipeDetail;
    case GestureCategory::cornerTap:
        return cornerTapDetail;
    case GestureCategory::pinchRotate:
        return isPinch(gesture) ? pinchDetail : rotationDetail;
    case GestureCategory::longPress:
        break;
    }
    return longPressDetail;
}

} // namespace

std::optional<GestureType> gestureTypeFromRawValue(std::string_view rawValue) {
    const auto found = std::ranges::find(table, rawValue, &GestureEntry::rawValue);
    if (found == table.end()) {
        return std::nullopt;
    }
    return static_cast<GestureType>(found - table.begin());
}

std::string_view rawValue(GestureType gesture) {
    return entry(gesture).rawValue;
}

GestureCategory category(GestureType gesture) {
    return entry(gesture).category;
}

std::string displayName(GestureType gesture) {
    return displayName(gesture, Lang::shared());
}

std::string displayName(GestureType gesture, const Lang& lang) {
    return lang.choose(entry(gesture).english, entry(gesture).chinese);
}

std::string detail(GestureType gesture) {
    return detail(gesture, Lang::shared());
}

std::string detail(GestureType gesture, const Lang& lang) {
    const BilingualText& text = detailText(gesture);
    return lang.choose(text.english, text.chinese);
}

std::string_view symbolName(GestureType gesture) {
    return symbolName(category(gesture));
}

} // namespace glidemap
