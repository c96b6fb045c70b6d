#include "drivers/contact/contact_geometry.h"

#include <linux/input-event-codes.h>
#include <linux/input.h>

#include <algorithm>
#include <numbers>

namespace glidemap {

namespace {

bool hasExtent(const AxisRange& axis) {
    return axis.maximum > axis.minimum;
}

double extent(const AxisRange& axis) {
    return static_cast<double>(axis.maximum) - static_cast<double>(axis.minimum);
}

// Returns the size in millimetres, or in the device's units if the resolution is unknown.
float contactSize(const std::optional<AxisRange>& axis, std::int32_t value) {
    if (!axis.has_value()) {
        return 0;
    }
    const double units = std::max(value, 0);
    return static_cast<float>(axis->resolution > 0 ? units / axis->resolution : units);
}

// The kernel measures the angle clockwise from upright, with the axis's maximum at a quarter turn.
// The record measures it anticlockwise from the x axis, so an upright finger is at a quarter turn.
float contactAngle(const std::optional<AxisRange>& axis, std::int32_t value) {
    constexpr double quarterTurn = std::numbers::pi / 2;
    if (!axis.has_value() || axis->maximum <= 0) {
        return 0;
    }
    const double turned = std::clamp(static_cast<double>(value) / axis->maximum, -1.0, 1.0);
    return static_cast<float>(quarterTurn - turned * quarterTurn);
}

} // namespace

double fraction(const AxisRange& axis, std::int32_t value) {
    if (!hasExtent(axis)) {
        return 0.5;
    }
    const double offset = static_cast<double>(value) - static_cast<double>(axis.minimum);
    return std::clamp(offset / extent(axis), 0.0, 1.0);
}

double millimetres(const AxisRange& axis) {
    return hasExtent(axis) && axis.resolution > 0 ? extent(axis) / axis.resolution : 0;
}

bool presses(const PadDescription& pad, const SlotValues& values) {
    const bool weightless = pad.pressure.has_value() && values.pressure <= 0;
    return values.toolType != MT_TOOL_PALM && values.distance <= 0 && !weightless;
}

void describeContact(const PadDescription& pad, const SlotValues& values, MTTouch& record) {
    const double x = fraction(pad.x, values.x);
    const double y =
        hasExtent(pad.y) ? 1 - fraction(pad.y, values.y) : 0.5; // the kernel's y grows downwards
    record.normalized.pos = {static_cast<float>(x), static_cast<float>(y)};
    record.absolute.pos = {static_cast<float>(x * millimetres(pad.x)),
                           static_cast<float>(y * millimetres(pad.y))};
    record.majorAxis = contactSize(pad.touchMajor, values.touchMajor);
    record.minorAxis = contactSize(pad.touchMinor, values.touchMinor);
    record.angle = contactAngle(pad.orientation, values.orientation);
    if (pad.pressure.has_value()) {
        record.zTotal = static_cast<float>(fraction(*pad.pressure, values.pressure));
        record.zDensity = static_cast<float>(values.pressure);
    }
}

void translate(const PadDescription& pad, MTPoint normalizedShift, MTTouch& record) {
    record.normalized.pos.x += normalizedShift.x;
    record.normalized.pos.y += normalizedShift.y;
    record.absolute.pos.x += static_cast<float>(normalizedShift.x * millimetres(pad.x));
    record.absolute.pos.y += static_cast<float>(normalizedShift.y * millimetres(pad.y));
}

void describeVelocity(const MTTouch& before, MTTouch& record) {
    constexpr double clockStep = 1e-6; // resolution of the kernel's time stamps
    const double elapsed = record.timestamp - before.timestamp;
    if (!(elapsed > clockStep / 2)) {
        return;
    }
    const auto velocity = [elapsed](MTPoint from, MTPoint to) -> MTPoint {
        return {static_cast<float>((to.x - from.x) / elapsed),
                static_cast<float>((to.y - from.y) / elapsed)};
    };
    record.normalized.vel = velocity(before.normalized.pos, record.normalized.pos);
    record.absolute.vel = velocity(before.absolute.pos, record.absolute.pos);
}

std::int32_t nextState(std::int32_t before, bool pressing) {
    if (!pressing) {
        return static_cast<std::int32_t>(MTTouchState::hoverInRange);
    }
    return static_cast<std::int32_t>(isTouchingState(before) ? MTTouchState::touching
                                                             : MTTouchState::makeTouch);
}

} // namespace glidemap
