#include "core/gesture_type.h"

#include "core/lang.h"

#include <algorithm>

namespace glidemap {

namespace {

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

bool isPinch(GestureType gesture) {
    return gesture == GestureType::pinchIn || gesture == GestureType::pinchOut;
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
        return fingerCount(gesture) == 2 ? twoFingerClickDetail : clickDetail;
    case GestureCategory::swipe:
        return fingerCount(gesture) == 2 ? twoFingerSwipeDetail : swipeDetail;
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
    const auto found = std::ranges::find(gestureTable, rawValue, &GestureRow::rawValue);
    return found != gestureTable.end() ? std::optional(found->type) : std::nullopt;
}

std::string displayName(GestureType gesture) {
    return displayName(gesture, Lang::shared());
}

std::string displayName(GestureType gesture, const Lang& lang) {
    return lang.choose(rowOf(gesture).english, rowOf(gesture).chinese);
}

std::string detail(GestureType gesture) {
    return detail(gesture, Lang::shared());
}

std::string detail(GestureType gesture, const Lang& lang) {
    const BilingualText& text = detailText(gesture);
    return lang.choose(text.english, text.chinese);
}

} // namespace glidemap
