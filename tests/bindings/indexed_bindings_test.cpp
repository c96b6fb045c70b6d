#include "binding_printers.h"
#include "bindings/indexed_bindings.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace glidemap {
namespace {

using Frontmost = std::optional<std::string_view>;

constexpr GestureType tap = GestureType::twoFingerTap;
constexpr GestureType swipe = GestureType::threeFingerSwipeUp;

// The key code distinguishes the bindings.
GestureBinding global(GestureType gesture, std::uint16_t keyCode) {
    return {.gesture = gesture, .action = KeyShortcut{keyCode, 0}, .scope = GlobalScope{}};
}

GestureBinding forApp(const char* bundleID, GestureType gesture, std::uint16_t keyCode) {
    return {.gesture = gesture,
            .action = KeyShortcut{keyCode, 0},
            .scope = AppScope{bundleID, "Name of " + std::string(bundleID)}};
}

GestureBinding disabled(GestureBinding binding) {
    binding.enabled = false;
    return binding;
}

constexpr int none = -1;

int keyCodeOf(const GestureBinding* binding) {
    return binding != nullptr ? std::get<KeyShortcut>(binding->action).keyCode : none;
}

struct Row {
    const char* name;
    BindingList list;
    GestureType gesture;
    Frontmost frontmost;
    int matched;
};

const Row rows[] = {
    {"an empty list", {}, tap, "a", none},
    {"a single binding", {global(tap, 1)}, tap, std::nullopt, 1},
    {"another gesture", {global(swipe, 1)}, tap, std::nullopt, none},
    {"the first of two global bindings", {global(tap, 1), global(tap, 2)}, tap, "a", 1},
    {"the first of two bindings for the application",
     {forApp("a", tap, 1), forApp("a", tap, 2)},
     tap,
     "a",
     1},
    {"the application's binding before the global one",
     {forApp("a", tap, 1), global(tap, 2)},
     tap,
     "a",
     1},
    {"the application's binding after the global one",
     {global(tap, 1), forApp("a", tap, 2)},
     tap,
     "a",
     2},
    {"the global binding in another application",
     {global(tap, 1), forApp("a", tap, 2)},
     tap,
     "b",
     1},
    {"the global binding if the application is unknown",
     {forApp("a", tap, 1), global(tap, 2)},
     tap,
     std::nullopt,
     2},
    {"an application's binding never matches an unknown application",
     {forApp("a", tap, 1)},
     tap,
     std::nullopt,
     none},
    {"an empty identifier never matches an unknown application",
     {forApp("", tap, 1)},
     tap,
     std::nullopt,
     none},
    {"an empty identifier matches itself", {forApp("", tap, 1)}, tap, "", 1},
    {"an application's binding never matches another application",
     {forApp("a", tap, 1)},
     tap,
     "b",
     none},
    {"identifiers differ by case",
     {forApp("org.example.App", tap, 1)},
     tap,
     "org.example.app",
     none},
    {"a prefix of the identifier does not match",
     {forApp("org.example.App", tap, 1)},
     tap,
     "org.example",
     none},
    {"a longer identifier does not match",
     {forApp("org.example", tap, 1)},
     tap,
     "org.example.App",
     none},
    {"the name is ignored", {forApp("a", tap, 1)}, tap, "Name of a", none},
    {"a disabled binding never matches", {disabled(global(tap, 1))}, tap, std::nullopt, none},
    {"the enabled binding after a disabled one",
     {disabled(global(tap, 1)), global(tap, 2)},
     tap,
     std::nullopt,
     2},
    {"a disabled binding for the application does not hide the global one",
     {disabled(forApp("a", tap, 1)), global(tap, 2)},
     tap,
     "a",
     2},
    {"a disabled global binding does not hide the application's",
     {disabled(forApp("a", tap, 1)), forApp("a", tap, 2), global(tap, 3)},
     tap,
     "a",
     2},
    {"the application's other gesture does not hide the global one",
     {forApp("a", swipe, 1), global(tap, 2)},
     tap,
     "a",
     2},
};

TEST(IndexedBindingsTest, PrefersTheFirstEnabledApplicationBindingOverTheFirstGlobalBinding) {
    for (const Row& row : rows) {
        const IndexedBindings bindings(row.list);
        EXPECT_EQ(keyCodeOf(bindings.match(row.gesture, row.frontmost)), row.matched) << row.name;
    }
}

TEST(IndexedBindingsTest, MatchReturnsAnElementOfItsOwnListAfterAMove) {
    IndexedBindings made({global(swipe, 1), forApp("a", tap, 2), global(tap, 3)});
    const IndexedBindings bindings(std::move(made));
    EXPECT_EQ(bindings.match(tap, "a"), &bindings.list()[1]);
    EXPECT_EQ(bindings.match(tap, "b"), &bindings.list()[2]);
}

TEST(IndexedBindingsTest, KeepsTheListUnchanged) {
    const BindingList list = {global(tap, 2), disabled(global(tap, 1)), global(tap, 2)};
    EXPECT_EQ(IndexedBindings(list).list(), list);
}

TEST(IndexedBindingsTest, HasEnabledFindsAnEnabledBindingInAnyScope) {
    const IndexedBindings bindings(
        {global(tap, 1), forApp("a", swipe, 2), disabled(global(GestureType::pinchIn, 3))});
    EXPECT_TRUE(bindings.hasEnabled(tap));
    EXPECT_TRUE(bindings.hasEnabled(swipe));
    EXPECT_FALSE(bindings.hasEnabled(GestureType::pinchIn));
    EXPECT_FALSE(bindings.hasEnabled(GestureType::pinchOut));
}

// The reference implementation: a linear search through the list.
const GestureBinding* linearSearch(const BindingList& list, GestureType gesture,
                                   const Frontmost& frontmost) {
    const GestureBinding* firstGlobal = nullptr;
    for (const GestureBinding& binding : list) {
        if (!binding.enabled || binding.gesture != gesture) {
            continue;
        }
        const auto* const app = std::get_if<AppScope>(&binding.scope);
        if (app != nullptr && frontmost && app->bundleID == *frontmost) {
            return &binding;
        }
        if (app == nullptr && firstGlobal == nullptr) {
            firstGlobal = &binding;
        }
    }
    return firstGlobal;
}

TEST(IndexedBindingsTest, AgreesWithALinearSearch) {
    std::mt19937 random(20240607);
    const auto below = [&random](std::uint_fast32_t limit) {
        return random() % limit;
    };
    const char* const apps[] = {"", "a", "A", "ab", "b", "org.example.App"};
    for (int round = 0; round < 300; ++round) {
        BindingList list;
        for (auto left = below(40); left > 0; --left) {
            const auto gesture = allGestureTypes[below(5) * 11];
            const auto keyCode = static_cast<std::uint16_t>(left);
            list.push_back(below(2) == 0 ? global(gesture, keyCode)
                                         : forApp(apps[below(6)], gesture, keyCode));
            list.back().enabled = below(4) != 0;
        }
        const IndexedBindings bindings(list);
        for (const GestureType gesture : allGestureTypes) {
            for (const char* app : apps) {
                EXPECT_EQ(keyCodeOf(bindings.match(gesture, app)),
                          keyCodeOf(linearSearch(list, gesture, app)));
            }
            EXPECT_EQ(keyCodeOf(bindings.match(gesture, std::nullopt)),
                      keyCodeOf(linearSearch(list, gesture, std::nullopt)));
        }
    }
}

} // namespace
} // namespace glidemap
