// Forwarding a touchpad to its clone must not allocate after the first few frames.
#include "bench/allocation_count.h"
#include "drivers/evdev/pad_interception.h"

#include <gtest/gtest.h>

#include <array>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace glidemap::bench {

namespace {

class SilentClone : public PadClone {
public:
    std::string place() const override { return "clone"; }
    bool write(std::span<const InputEvent> frame) override {
        written += frame.size();
        return true;
    }
    void destroy() override {}

    static inline std::size_t written = 0;
};

class SilentPad : public OpenPad {
public:
    SilentPad() { pad.slotCount = slots; }

    int descriptor() const override { return -1; }
    const PadDescription& description() const override { return pad; }
    Read next(InputEvent& /*event*/) override { return Read::nothing; }
    bool hasButtons() const override { return true; }
    std::optional<double> grab() override { return 0; }
    GrabResult grabBetweenTouches() override { return {GrabResult::Outcome::grabbed}; }
    double ungrab() override { return 0; }
    std::optional<double> ungrabBetweenTouches() override { return 0; }
    std::unique_ptr<PadClone> makeClone() override { return std::make_unique<SilentClone>(); }

    static constexpr std::int32_t slots = 10;

private:
    PadDescription pad;
};

// Reports every clone as announced and open immediately.
class SilentWatch : public CloneWatch {
public:
    std::array<int, 2> descriptors() const override { return {-1, -1}; }
    void acknowledge() override {}
    CloneStanding standing(const PadClone& /*clone*/) const override { return {true, true, true}; }
};

class MovableTime : public WatchdogTime {
public:
    Moment now() const override { return current; }
    void wait(std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
              std::optional<Moment> /*until*/) override {
        condition.wait(lock);
    }
    Moment current{};
};

// Ten fingers land, move, click and lift.
void touch(PadInterception& interception, std::int32_t round) {
    const auto addEvent = [&](std::uint16_t type, std::uint16_t code, std::int32_t value) {
        interception.add({1, type, code, value});
    };
    for (std::int32_t step = 0; step < 20; ++step) {
        for (std::int32_t slot = 0; slot < SilentPad::slots; ++slot) {
            addEvent(EV_ABS, ABS_MT_SLOT, slot);
            if (step == 0 || step == 19) {
                addEvent(EV_ABS, ABS_MT_TRACKING_ID, step == 0 ? round : -1);
            }
            addEvent(EV_ABS, ABS_MT_POSITION_X, round + step);
            addEvent(EV_ABS, ABS_MT_POSITION_Y, step);
        }
        addEvent(EV_KEY, BTN_LEFT, step % 2);
        interception.endFrame(1);
        interception.settle();
    }
}

TEST(Forwarding, DoesNotAllocateAfterTheFirstTouch) {
    MovableTime time;
    ClickInterception clicks(
        time, [] {}, [] { return std::make_unique<SilentWatch>(); });
    clicks.setFilter([](void*, driver::Device, std::int32_t, std::int32_t) { return true; },
                     nullptr);
    clicks.switchOn(true);
    SilentPad pad;
    PadInterception interception(nullptr, pad, clicks);
    interception.settle();
    time.current += CloneIntroduction::readerGracePeriod;
    interception.settle();
    touch(interception, 0);

    const std::size_t writtenBefore = SilentClone::written;
    const std::int64_t before = allocationsOfThisThread();
    for (std::int32_t round = 1; round <= 100; ++round) {
        touch(interception, round);
    }
    EXPECT_EQ(allocationsOfThisThread() - before, 0);
    EXPECT_GT(SilentClone::written - writtenBefore, 100'000U / 2);
}

} // namespace

} // namespace glidemap::bench
