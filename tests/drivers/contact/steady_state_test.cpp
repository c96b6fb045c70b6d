// The assembler runs for each report of each touchpad, so it must not allocate after construction,
// for any sequence of events.

#include "pad_events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <set>

namespace {
std::size_t allocations = 0;
} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size != 0 ? size : 1); memory != nullptr) {
        return memory;
    }
    throw std::bad_alloc();
}
// This function is not inlined, because the compiler otherwise warns about mismatched allocation
// and deallocation.
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace glidemap::test {
namespace {

// Generates the same events on every run: mostly plausible events, and some invalid events.
class AnyEvents {
public:
    InputEvent next() {
        switch (pick(10)) {
        case 0:
        case 1:
            time += 0.001 * static_cast<double>(pick(20)) - 0.002;
            return {time, EV_SYN, SYN_REPORT, 0};
        case 2:
            return {time, EV_SYN, static_cast<std::uint16_t>(pick(4)), 0};
        case 3:
        case 4:
            return {time, EV_KEY, keys[pick(keys.size())], static_cast<std::int32_t>(pick(3))};
        default:
            return {time, EV_ABS, axes[pick(axes.size())], value()};
        }
    }

private:
    static constexpr std::array<std::uint16_t, 9> axes = {
        ABS_MT_SLOT,       ABS_MT_TRACKING_ID, ABS_MT_POSITION_X,
        ABS_MT_POSITION_Y, ABS_MT_PRESSURE,    ABS_MT_ORIENTATION,
        ABS_MT_DISTANCE,   ABS_MT_TOOL_TYPE,   ABS_MT_TOUCH_MAJOR};
    static constexpr std::array<std::uint16_t, 8> keys = {
        BTN_LEFT,           BTN_RIGHT,          BTN_MIDDLE,       BTN_TOOL_FINGER,
        BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP};

    std::size_t pick(std::size_t below) { return random() % below; }
    std::int32_t value() {
        using Limits = std::numeric_limits<std::int32_t>;
        switch (pick(8)) {
        case 0:
            return -1;
        case 1:
            return pick(2) == 0 ? Limits::min() : Limits::max();
        case 2:
            return static_cast<std::int32_t>(pick(120));
        default:
            return static_cast<std::int32_t>(pick(4));
        }
    }

    std::mt19937 random{20};
    double time = 1;
};

bool isSound(const PadFrame& frame) {
    std::array<std::int32_t, 64> seen{};
    std::size_t count = 0;
    for (const MTTouch& record : frame.contacts) {
        const auto last = seen.begin() + static_cast<std::ptrdiff_t>(count);
        const bool repeated = std::find(seen.begin(), last, record.identifier) != last;
        const MTReadout& normalized = record.normalized;
        const bool finite = std::isfinite(normalized.pos.x) && std::isfinite(normalized.pos.y) &&
                            std::isfinite(normalized.vel.x) && std::isfinite(normalized.vel.y);
        if (repeated || !finite || record.identifier <= 0) {
            return false;
        }
        seen.at(count++) = record.identifier;
    }
    return true;
}

TEST(ContactAssemblerRandomEvents, ProduceValidReportsWithoutAllocating) {
    for (const PadDescription& description :
         {padWithSlots(5), padWithSlots(2), padWithSlots(1), semiMultitouchPad(), pressurePad()}) {
        ContactAssembler assembler(description);
        AnyEvents events;
        int wrong = 0;
        const std::size_t before = allocations;
        for (int count = 1; count <= 200'000; ++count) {
            const InputEvent event = events.next();
            const PadFrame* frame = assembler.handle(event);
            const bool ends = event.type == EV_SYN && event.code == SYN_REPORT;
            wrong += (frame != nullptr) == ends ? 0 : 1;
            wrong += frame == nullptr || isSound(*frame) ? 0 : 1;
            if (count % 5000 == 0) {
                wrong += assembler.release(event.time).contacts.empty() ? 0 : 1;
            }
        }
        EXPECT_EQ(allocations, before);
        EXPECT_EQ(wrong, 0);
    }
}

TEST(ContactAssemblerRandomEvents, EveryContactIsReportedUntilItLeaves) {
    for (const PadDescription& description :
         {padWithSlots(5), padWithSlots(2), semiMultitouchPad()}) {
        ContactAssembler assembler(description);
        AnyEvents events;
        std::set<std::int32_t> present;
        std::int32_t newest = 0;
        for (int count = 0; count < 200'000; ++count) {
            const PadFrame* frame = assembler.handle(events.next());
            if (frame == nullptr || !frame->contactsChanged) {
                continue;
            }
            std::set<std::int32_t> now;
            for (const MTTouch& record : frame->contacts) {
                const bool isNew = !present.contains(record.identifier);
                ASSERT_TRUE(!isNew || record.identifier > newest) << "an identifier was reused";
                ASSERT_TRUE(!isNew || record.state == 2 || record.state == 3);
                newest = std::max(newest, record.identifier);
                present.erase(record.identifier);
                if (record.state != 7) {
                    now.insert(record.identifier);
                }
            }
            ASSERT_TRUE(present.empty()) << "a contact disappeared without a report";
            present = now;
        }
    }
}

} // namespace
} // namespace glidemap::test
