#include "kit/records.h"

#include <limits>

namespace glidemap::test {

MTTouch record(std::int32_t identifier, double x, double y, MTTouchState state) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    MTTouch record{};
    record.frame = -1;
    record.timestamp = std::numeric_limits<double>::quiet_NaN();
    record.identifier = identifier;
    record.state = static_cast<std::int32_t>(state);
    record.fingerID = -2;
    record.handID = -3;
    record.normalized = {{static_cast<float>(x), static_cast<float>(y)}, {nan, nan}};
    record.zTotal = nan;
    record.field9 = -4;
    record.angle = nan;
    record.majorAxis = nan;
    record.minorAxis = nan;
    record.absolute = {{nan, nan}, {nan, nan}};
    record.field14 = -5;
    record.field15 = -6;
    record.zDensity = nan;
    return record;
}

std::vector<MTTouch> recordsOf(const TouchFrame& frame) {
    std::vector<MTTouch> records;
    for (const TouchPoint& touch : frame.touches) {
        const auto state = touch.isTouching ? MTTouchState::touching : MTTouchState::hoverInRange;
        records.push_back(record(touch.id, touch.x, touch.y, state));
    }
    return records;
}

} // namespace glidemap::test
