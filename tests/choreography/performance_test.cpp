// Tests that a performance consists of reports like those of a touchpad, with timing and distances
// that match measurements of people.

#include "choreography/performance.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace glidemap {

inline void PrintTo(GestureType gesture, std::ostream* out) {
    *out << rawValue(gesture);
}

namespace {

using testing::IsEmpty;

constexpr std::uint64_t seeds = 300;

// The history of one contact, reconstructed from the reports.
struct ContactStory {
    std::vector<std::int32_t> states;
    double firstTouch = -1;
    double lastTouch = -1;
    double gone = -1; // the time of the first report in which the contact no longer touches
    MTPoint start{};
    MTPoint end{};

    double travelX() const { return end.x - start.x; }
    double travelY() const { return end.y - start.y; }
    double travel() const { return std::hypot(travelX(), travelY()); }
};

void follow(ContactStory& story, const MTTouch& touch, double time) {
    story.states.push_back(touch.state);
    if (isTouchingState(touch.state)) {
        if (story.firstTouch < 0) {
            story.firstTouch = time;
            story.start = touch.normalized.pos;
        }
        story.lastTouch = time;
        story.end = touch.normalized.pos;
    } else if (story.firstTouch >= 0 && story.gone < 0) {
        story.gone = time;
    }
}

std::map<std::int32_t, ContactStory> contactsOf(const Performance& performance) {
    std::map<std::int32_t, ContactStory> contacts;
    for (const TimedReport& report : performance) {
        for (const MTTouch& touch : report.touches) {
            follow(contacts[touch.identifier], touch, report.time);
        }
    }
    return contacts;
}

// Returns a letter for each state: "h" hovering, "d" down, "t" touching, "g" gone. Repeated "h" and
// repeated "t" are merged.
std::string outline(const ContactStory& story) {
    std::string text;
    for (const std::int32_t state : story.states) {
        const char letter = state == 2 ? 'h' : state == 3 ? 'd' : state == 4 ? 't' : 'g';
        if (text.empty() || text.back() != letter || letter == 'd' || letter == 'g') {
            text += letter;
        }
    }
    return text;
}

class PerformanceTest : public testing::TestWithParam<GestureType> {
protected:
    // Calls `check` with the performances of many seeds.
    template <typename Check>
    void forEverySeed(Check check) {
        for (std::uint64_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            check(perform(GetParam(), seed));
        }
    }
};

TEST_P(PerformanceTest, StartsAtTimeZeroAndEndsWithoutTouches) {
    forEverySeed([](const Performance& performance) {
        ASSERT_FALSE(performance.empty());
        EXPECT_EQ(performance.front().time, 0);
        const auto& last = performance.back().touches;
        EXPECT_TRUE(std::none_of(last.begin(), last.end(), [](const MTTouch& touch) {
            return isTouchingState(touch.state);
        }));
    });
}

TEST_P(PerformanceTest, ReportIntervalsVaryLikeThoseOfATouchpad) {
    forEverySeed([](const Performance& performance) {
        for (std::size_t index = 1; index < performance.size(); ++index) {
            const double interval = performance[index].time - performance[index - 1].time;
            EXPECT_GE(interval, 0.0064);
            if (!performance[index - 1].touches.empty() && !performance[index].touches.empty() &&
                performance[index - 1].touches.back().state != 7) {
                EXPECT_LE(interval, 0.0096);
            }
        }
    });
}

TEST_P(PerformanceTest, EveryContactPassesThroughItsStatesInOrder) {
    forEverySeed([](const Performance& performance) {
        for (const auto& [identifier, story] : contactsOf(performance)) {
            EXPECT_THAT(outline(story), testing::MatchesRegex("h?dth?g"));
        }
    });
}

TEST_P(PerformanceTest, EveryPositionIsOnThePad) {
    forEverySeed([](const Performance& performance) {
        for (const TimedReport& report : performance) {
            for (const MTTouch& touch : report.touches) {
                EXPECT_GE(touch.normalized.pos.x, 0);
                EXPECT_LE(touch.normalized.pos.x, 1);
                EXPECT_GE(touch.normalized.pos.y, 0);
                EXPECT_LE(touch.normalized.pos.y, 1);
            }
        }
    });
}

TEST_P(PerformanceTest, RecordsCarryTheTimeAndNumberOfTheirReport) {
    const Performance performance = perform(GetParam(), 3);
    for (std::size_t index = 0; index < performance.size(); ++index) {
        for (const MTTouch& touch : performance[index].touches) {
            EXPECT_EQ(touch.timestamp, performance[index].time);
            EXPECT_EQ(touch.frame, static_cast<std::int32_t>(index));
        }
    }
}

bool samePositions(const Performance& one, const Performance& other) {
    const auto sameTouch = [](const MTTouch& a, const MTTouch& b) {
        return a.identifier == b.identifier && a.state == b.state &&
               a.normalized.pos.x == b.normalized.pos.x && a.normalized.pos.y == b.normalized.pos.y;
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [&](const TimedReport& a, const TimedReport& b) {
                          return a.time == b.time &&
                                 std::equal(a.touches.begin(), a.touches.end(), b.touches.begin(),
                                            b.touches.end(), sameTouch);
                      });
}

TEST_P(PerformanceTest, SeedDeterminesThePerformance) {
    EXPECT_TRUE(samePositions(perform(GetParam(), 11), perform(GetParam(), 11)));
    EXPECT_FALSE(samePositions(perform(GetParam(), 11), perform(GetParam(), 12)));
}

INSTANTIATE_TEST_SUITE_P(AllPerformableGestures, PerformanceTest,
                         testing::ValuesIn(performableGestures()),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

// The minimum and maximum of the added values.
struct Range {
    double low = 1e9;
    double high = -1e9;

    void add(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

double sessionLength(const std::map<std::int32_t, ContactStory>& contacts) {
    Range times;
    for (const auto& [identifier, story] : contacts) {
        times.add(story.firstTouch);
        times.add(story.gone);
    }
    return times.high - times.low;
}

TEST(PerformTest, FortyFourGesturesCanBePerformed) {
    EXPECT_EQ(performableGestures().size(), 44U);
}

TEST(PerformTest, ClicksAndTheAnyDirectionCircleHaveEmptyPerformances) {
    for (const GestureType gesture :
         {GestureType::drawCircle, GestureType::twoFingerClick, GestureType::threeFingerClick,
          GestureType::fourFingerClick}) {
        EXPECT_THAT(perform(gesture, 1), IsEmpty());
    }
}

TEST(PerformTest, TapsHaveTheDurationOfRealTaps) {
    Range lengths;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        lengths.add(sessionLength(contactsOf(perform(GestureType::twoFingerTap, seed))));
    }
    EXPECT_GE(lengths.low, 0.045);
    EXPECT_LE(lengths.low, 0.090);
    EXPECT_GE(lengths.high, 0.170);
    EXPECT_LE(lengths.high, 0.220);
}

TEST(PerformTest, FingersLandAndLiftUnevenly) {
    Range landing;
    Range lifting;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        Range down;
        Range up;
        for (const auto& [id, story] : contactsOf(perform(GestureType::fourFingerTap, seed))) {
            down.add(story.firstTouch);
            up.add(story.gone);
        }
        landing.add(down.high - down.low);
        lifting.add(up.high - up.low);
    }
    // The durations are measured in the reports, and the pad may report a landing or a lift up to
    // one report interval late.
    EXPECT_EQ(landing.low, 0);
    EXPECT_GE(landing.high, 0.020);
    EXPECT_LE(landing.high, 0.030 + 0.010);
    EXPECT_EQ(lifting.low, 0);
    EXPECT_GE(lifting.high, 0.006);
    EXPECT_LE(lifting.high, 0.008 + 0.010);
}

TEST(PerformTest, SwipesHaveTheDurationAndLengthOfRealSwipes) {
    Range travel;
    Range length;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        const auto contacts = contactsOf(perform(GestureType::threeFingerSwipeLeft, seed));
        length.add(sessionLength(contacts));
        for (const auto& [id, story] : contacts) {
            travel.add(story.travel());
            EXPECT_LT(story.travelX(), 0);
        }
    }
    EXPECT_GE(travel.low, 0.22); // the pad may miss the last milliseconds of a stroke
    EXPECT_LE(travel.low, 0.30);
    EXPECT_GE(travel.high, 0.50);
    EXPECT_LE(travel.high, 0.64);
    EXPECT_LE(length.high, 0.160); // includes landing and lifting
}

TEST(PerformTest, RestingFingerDriftsAndJitters) {
    Range wandering;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        for (const auto& [id, story] : contactsOf(perform(GestureType::twoFingerLongPress, seed))) {
            wandering.add(story.travel());
        }
    }
    EXPECT_GT(wandering.low, 0);
    EXPECT_GE(wandering.high, 0.006);
    EXPECT_LE(wandering.high, 0.020);
}

TEST(PerformTest, SomePerformancesHaveHoveringFingersAndSomeAnEmptyReport) {
    int hovering = 0;
    int empty = 0;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        const Performance performance = perform(GestureType::pinchOut, seed);
        for (const auto& [id, story] : contactsOf(performance)) {
            hovering += story.states.front() == 2 ? 1 : 0;
        }
        empty += performance.back().touches.empty() ? 1 : 0;
    }
    EXPECT_GT(hovering, 100);
    EXPECT_LT(hovering, 500);
    EXPECT_GT(empty, 100);
    EXPECT_LT(empty, 200);
}

} // namespace
} // namespace glidemap
