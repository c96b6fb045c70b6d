#include "ordinary_pad.h"

#include <linux/input.h>

#include <array>

namespace glidemap::test {

PadShape ordinaryPad() {
    constexpr std::int32_t resolution = 40;
    const PadAxis x{0, ordinaryWidth, 0, resolution, 0};
    const PadAxis y{0, ordinaryHeight, 0, resolution, 0};
    return {
        .name = "Ordinary Touchpad",
        .bus = BUS_USB,
        .vendor = 0x6b67,
        .product = 0x0001,
        .version = 0x0100,
        .properties = {INPUT_PROP_POINTER, INPUT_PROP_BUTTONPAD},
        .keys = {BTN_LEFT, BTN_TOUCH, BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP,
                 BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP},
        .axes = {{ABS_X, x},
                 {ABS_Y, y},
                 {ABS_MT_SLOT, {0, ordinarySlots - 1, 0, 0, 0}},
                 {ABS_MT_POSITION_X, x},
                 {ABS_MT_POSITION_Y, y},
                 {ABS_MT_TRACKING_ID, {0, 65535, 0, 0, 0}}},
    };
}

PadShape otherPad() {
    PadShape shape = ordinaryPad();
    shape.name = "Other Touchpad";
    shape.product = 0x0002;
    return shape;
}

std::uint16_t fingerTool(std::size_t count) {
    constexpr std::array<std::uint16_t, ordinarySlots> tools = {
        BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP,
        BTN_TOOL_QUINTTAP};
    return tools.at(count - 1);
}

EventFrame fingerDown(std::int32_t slot, std::int32_t trackingId, std::int32_t x, std::int32_t y) {
    return {{EV_ABS, ABS_MT_SLOT, slot},
            {EV_ABS, ABS_MT_TRACKING_ID, trackingId},
            {EV_ABS, ABS_MT_POSITION_X, x},
            {EV_ABS, ABS_MT_POSITION_Y, y}};
}

EventFrame fingerMove(std::int32_t slot, std::int32_t x, std::int32_t y) {
    return {{EV_ABS, ABS_MT_SLOT, slot},
            {EV_ABS, ABS_MT_POSITION_X, x},
            {EV_ABS, ABS_MT_POSITION_Y, y}};
}

EventFrame fingerUp(std::int32_t slot) {
    return {{EV_ABS, ABS_MT_SLOT, slot}, {EV_ABS, ABS_MT_TRACKING_ID, -1}};
}

EventFrame together(std::initializer_list<EventFrame> frames) {
    EventFrame all;
    for (const EventFrame& frame : frames) {
        all.insert(all.end(), frame.begin(), frame.end());
    }
    return all;
}

float seenX(std::int32_t x) {
    return static_cast<float>(x) / ordinaryWidth;
}

float seenY(std::int32_t y) {
    return 1 - static_cast<float>(y) / ordinaryHeight;
}

} // namespace glidemap::test
