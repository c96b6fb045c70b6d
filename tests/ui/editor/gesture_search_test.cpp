#include "kit/in_language.h"
#include "ui/editor/gesture_search.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap {

namespace {

// Returns one line per group: "tap: twoFingerTap threeFingerTap".
std::vector<std::string> found(std::string_view text) {
    std::vector<std::string> lines;
    for (const FoundGestures& group : findGestures(text)) {
        std::string line = std::string(rawValue(group.category)) + ":";
        for (const GestureType gesture : group.gestures) {
            line += " " + std::string(rawValue(gesture));
        }
        lines.push_back(line);
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(GestureSearchTest, BlankTextFindsAllGesturesInCatalogueOrder) {
    for (const char* const text : {"", " ", " \t ", "\u3000"}) {
        std::vector<GestureType> all;
        std::vector<GestureCategory> groups;
        for (const FoundGestures& group : findGestures(text)) {
            groups.push_back(group.category);
            all.insert(all.end(), group.gestures.begin(), group.gestures.end());
        }
        EXPECT_EQ(groups, std::vector(allGestureCategories.begin(), allGestureCategories.end()));
        EXPECT_EQ(all, std::vector(allGestureTypes.begin(), allGestureTypes.end())) << text;
    }
}

TEST(GestureSearchTest, FindsByNameAndCategoryInBothLanguages) {
    struct Row {
        const char* what;
        const char* text;
        Lines found;
    };
    const Lines pinches = {"pinchRotate: pinchIn pinchOut rotateClockwise rotateCounterclockwise"};
    const Row rows[] = {
        {"a whole name", "Five-Finger Tap", {"tap: fiveFingerTap"}},
        {"part of a name", "five-finger ta", {"tap: fiveFingerTap"}},
        {"a name in capitals", "FIVE-FINGER TAP", {"tap: fiveFingerTap"}},
        {"words in another order", "tap five", {"tap: fiveFingerTap"}},
        {"with spaces around", "  tap   five ", {"tap: fiveFingerTap"}},
        {"a Chinese name", "五指轻点", {"tap: fiveFingerTap"}},
        {"Chinese words with a Chinese space", "五指　轻点", {"tap: fiveFingerTap"}},
        {"words of both languages", "five 轻点", {"tap: fiveFingerTap"}},
        {"a category, although no name has it", "rotate &", pinches},
        {"a Chinese category", "捏合 /", pinches},
        {"a word of the category, one of the name", "hold above", {"fixAndTap: fixAndTapAbove"}},
        {"in several groups",
         "five",
         {"tap: fiveFingerTap",
          "swipe: fiveFingerSwipeLeft fiveFingerSwipeRight fiveFingerSwipeUp fiveFingerSwipeDown"}},
        {"in every member of a group, and in a name elsewhere",
         "counter-clockwise",
         {"circle: drawCircleCounterclockwise", "pinchRotate: rotateCounterclockwise"}},
        {"a sign of a name", "(any", {"circle: drawCircle"}},
        {"nothing", "six", {}},
        {"two words that no gesture has both of", "five press", {}},
        {"the stored name is not shown, and finds nothing", "drawCircle", {}},
        {"no word spans two names", "circle circle (any direction)circle", {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(found(row.text), row.found) << row.what;
    }
}

TEST(GestureSearchTest, ResultsDoNotDependOnTheInterfaceLanguage) {
    const test::InLanguage chinese("zh");
    EXPECT_EQ(found("five tap"), Lines{"tap: fiveFingerTap"});
    EXPECT_EQ(found("五指轻点"), Lines{"tap: fiveFingerTap"});
}

TEST(GestureSearchTest, EveryGestureIsFoundByEachOfItsNames) {
    for (const char* const code : {"en", "zh"}) {
        const test::InLanguage language(code);
        for (const GestureType gesture : allGestureTypes) {
            bool isThere = false;
            for (const FoundGestures& group : findGestures(displayName(gesture))) {
                for (const GestureType candidate : group.gestures) {
                    isThere = isThere || candidate == gesture;
                }
            }
            EXPECT_TRUE(isThere) << displayName(gesture);
        }
    }
}

} // namespace

} // namespace glidemap
