#include "kit/rows.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace glidemap::test {

namespace {

std::vector<GestureType> expectedIn(const PerformanceVariant& variant,
                                    std::vector<GestureType> gestures) {
    if (variant.expect) {
        std::ranges::transform(gestures, gestures.begin(), variant.expect);
    }
    return gestures;
}

} // namespace

std::string mismatch(const Row& row, const PerformanceVariant& variant) {
    auto frames = row.script.frames(variant.framesPerSecond);
    if (variant.change) {
        variant.change(frames);
    }
    const auto reported = perform(frames, {variant.through, row.boundDoubleTaps});
    const auto expected = expectedIn(variant, row.expected);
    if (gesturesOf(reported) == expected) {
        return {};
    }
    return row.fact + "\n  script:   " + row.script.text() + "\n  variant:  " + variant.name +
           "\n  expected:" + written(expected) + "\n  actual:  " + written(reported);
}

void expectRows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(mismatch(row, allVariants().front()), "");
    }
}

void expectRowsInEveryVariant(std::span<const Row> rows) {
    for (const Row& row : rows) {
        for (const PerformanceVariant& variant : allVariants()) {
            EXPECT_EQ(mismatch(row, variant), "");
        }
    }
}

void expectReportedGestures(const Script& script, const std::vector<ReportedGesture>& expected,
                            const PerformanceStage& stage) {
    const auto reported = perform(script, stage);
    if (reported != expected) {
        ADD_FAILURE() << "script:   " << script.text() << "\n  expected:" << written(expected)
                      << "\n  actual:  " << written(reported);
    }
}

} // namespace glidemap::test
