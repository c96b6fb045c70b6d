#include "kit/rows.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace glidemap::kit {

namespace {

std::vector<GestureType> expectedIn(const Variant& variant, std::vector<GestureType> gestures) {
    if (variant.expect) {
        std::ranges::transform(gestures, gestures.begin(), variant.expect);
    }
    return gestures;
}

} // namespace

std::string complaint(const Row& row, const Variant& variant) {
    auto frames = row.script.frames(variant.framesPerSecond);
    if (variant.change) {
        variant.change(frames);
    }
    const auto heard = perform(frames, {variant.through, row.boundDoubleTaps});
    const auto expected = expectedIn(variant, row.expected);
    if (gesturesOf(heard) == expected) {
        return {};
    }
    return row.fact + "\n  script:   " + row.script.text() + "\n  variant:  " + variant.name +
           "\n  expected:" + written(expected) + "\n  actual:  " + written(heard);
}

void expectRows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(complaint(row, allVariants().front()), "");
    }
}

void expectRowsInEveryVariant(std::span<const Row> rows) {
    for (const Row& row : rows) {
        for (const Variant& variant : allVariants()) {
            EXPECT_EQ(complaint(row, variant), "");
        }
    }
}

void expectHeard(const Script& script, const std::vector<Heard>& expected, const Stage& stage) {
    const auto heard = perform(script, stage);
    if (heard != expected) {
        ADD_FAILURE() << "script:   " << script.text() << "\n  expected:" << written(expected)
                      << "\n  actual:  " << written(heard);
    }
}

} // namespace glidemap::kit
