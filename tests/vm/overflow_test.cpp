// Tests that the driver reports the correct contacts after the kernel has dropped events. Each test
// blocks the driver until its event buffer in the kernel overflows.

#include "driver_session.h"
#include "ordinary_pad.h"
#include "virtual_pad.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace glidemap::test {
namespace {

// Many times the number of frames that the kernel buffers for a reader of this touchpad.
constexpr std::int32_t manyFrames = 1000;

const SeenContact* contactWith(const SeenContacts& contacts, std::int32_t identifier) {
    const auto found = std::ranges::find(contacts, identifier, &SeenContact::identifier);
    return found != contacts.end() ? &*found : nullptr;
}

class OverflowTest : public testing::Test {
protected:
    // Puts two fingers down and blocks the driver's thread in its report of the second finger.
    void SetUp() override {
        session.play(pad, {fingerDown(0, 7, 1000, 500)});
        device = session.settle(pad);
        session.holdReports();
        pad.write(fingerDown(1, 8, 2000, 500));
        ASSERT_TRUE(session.waitUntil("the second finger", [](const DriverSession::Seen& seen) {
            return seen.reports.size() == 2;
        }));
    }

    void moveFingerZeroManyTimes() {
        for (std::int32_t step = 1; step <= manyFrames; ++step) {
            pad.write(fingerMove(0, 1000 + step, 500 + step % 2));
        }
    }

    // Calls releaseReports() and returns the reports that follow those of SetUp(). They are fewer
    // than the frames, because the kernel has dropped events.
    std::vector<SeenContacts> afterRelease() {
        EXPECT_TRUE(session.releaseReports());
        session.settle(pad);
        auto reports = session.seen().reportsOf(device);
        EXPECT_LT(reports.size(), static_cast<std::size_t>(manyFrames));
        reports.erase(reports.begin(), reports.begin() + 2);
        EXPECT_FALSE(reports.empty());
        return reports;
    }

    VirtualPad pad{ordinaryPad()};
    DriverSession session;
    driver::Device device = nullptr;
};

TEST_F(OverflowTest, FingersThatStayDownKeepTheirIdentifiers) {
    moveFingerZeroManyTimes();
    const auto reports = afterRelease();
    EXPECT_EQ(reports.back(),
              (SeenContacts{{1, 4, seenX(1000 + manyFrames), seenY(500 + manyFrames % 2)},
                            {2, 4, seenX(2000), seenY(500)}}));
}

TEST_F(OverflowTest, FingerThatLiftsDuringTheOverflowLeavesOnce) {
    pad.write(fingerUp(1));
    moveFingerZeroManyTimes();
    const auto reports = afterRelease();
    const auto leaving = std::ranges::count_if(reports, [](const SeenContacts& contacts) {
        const SeenContact* contact = contactWith(contacts, 2);
        return contact != nullptr && contact->state == 7;
    });
    EXPECT_EQ(leaving, 1);
    const SeenContacts& last = reports.back();
    const SeenContact* gone = contactWith(last, 2);
    EXPECT_TRUE(gone == nullptr || gone->state == 7);
    const SeenContact* stayed = contactWith(last, 1);
    ASSERT_NE(stayed, nullptr);
    EXPECT_EQ(stayed->x, seenX(1000 + manyFrames));
}

// When the driver queries slot 1 after the overflow, the slot already has a new tracking id. The
// driver must notice that the slot's previous finger has lifted, although it never found the slot
// empty.
TEST_F(OverflowTest, NewFingerInAReusedSlotHasANewIdentifier) {
    moveFingerZeroManyTimes();
    pad.write(fingerUp(1));
    pad.write(fingerDown(1, 9, 3000, 1500));
    const auto reports = afterRelease();
    const SeenContacts& last = reports.back();
    EXPECT_TRUE(std::ranges::none_of(last, [](const SeenContact& contact) {
        return contact.identifier == 2 && contact.isTouching();
    }));
    const auto newcomer = std::ranges::find_if(last, [](const SeenContact& contact) {
        return contact.isTouching() && contact.identifier > 2;
    });
    ASSERT_NE(newcomer, last.end());
    EXPECT_EQ(newcomer->x, seenX(3000));
    EXPECT_EQ(newcomer->y, seenY(1500));
}

TEST_F(OverflowTest, TouchEndsIfAllFingersLiftDuringTheOverflow) {
    moveFingerZeroManyTimes();
    pad.write(together({fingerUp(0), fingerUp(1)}));
    const auto reports = afterRelease();
    EXPECT_TRUE(std::ranges::none_of(reports.back(), &SeenContact::isTouching));

    session.play(pad, {fingerDown(0, 20, 100, 100)});
    const SeenContacts last = session.seen().lastOf(device);
    ASSERT_EQ(last.size(), 1U);
    EXPECT_EQ(last[0].state, 3);
    EXPECT_EQ(last[0].x, seenX(100));
}

} // namespace
} // namespace glidemap::test
