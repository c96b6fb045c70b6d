#include "drivers/evdev/clone_introduction.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace glidemap::test {
namespace {

using std::chrono::milliseconds;
using State = CloneIntroduction::State;

constexpr CloneStanding withoutNode{};
constexpr CloneStanding unannounced{true, false, true};
constexpr CloneStanding closed{true, true, false};
constexpr CloneStanding open{true, true, true};
constexpr CloneStanding unknown{true, true, std::nullopt};
const CloneIntroduction::Moment begin{};

TEST(CloneIntroduction, WaitsForTheGracePeriodAfterAReaderOpensTheClone) {
    CloneIntroduction introduction(begin);
    EXPECT_EQ(introduction.look(open, begin), State::waiting);
    EXPECT_EQ(introduction.nextLook(), begin + milliseconds(100));
    EXPECT_EQ(introduction.look(open, begin + milliseconds(99)), State::waiting);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(100)), State::ready);
    EXPECT_EQ(introduction.obstacle(), nullptr);
}

TEST(CloneIntroduction, WaitsFor500MillisecondsIfReadersAreUnknown) {
    CloneIntroduction introduction(begin);
    introduction.look(unknown, begin);
    EXPECT_EQ(introduction.look(unknown, begin + milliseconds(499)), State::waiting);
    EXPECT_EQ(introduction.look(unknown, begin + milliseconds(500)), State::ready);
}

TEST(CloneIntroduction, FailsWithAReasonAfterTwoSecondsWithoutAReader) {
    for (const CloneStanding& standing : {withoutNode, unannounced, closed}) {
        CloneIntroduction introduction(begin);
        EXPECT_EQ(introduction.look(standing, begin), State::waiting);
        EXPECT_EQ(introduction.nextLook(), begin + milliseconds(2000));
        EXPECT_EQ(introduction.look(standing, begin + milliseconds(1999)), State::waiting);
        EXPECT_EQ(introduction.look(standing, begin + milliseconds(2000)), State::failed);
        EXPECT_NE(introduction.obstacle(), nullptr);
    }
}

TEST(CloneIntroduction, ReaderThatOpensTheCloneLateGetsTheFullGracePeriod) {
    CloneIntroduction introduction(begin);
    introduction.look(closed, begin);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(1999)), State::waiting);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(2098)), State::waiting);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(2099)), State::ready);
}

TEST(CloneIntroduction, RestartsTheGracePeriodForANewReader) {
    CloneIntroduction introduction(begin);
    introduction.look(open, begin);
    EXPECT_EQ(introduction.look(closed, begin + milliseconds(50)), State::waiting);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(100)), State::waiting);
    EXPECT_EQ(introduction.look(open, begin + milliseconds(200)), State::ready);
}

} // namespace
} // namespace glidemap::test
