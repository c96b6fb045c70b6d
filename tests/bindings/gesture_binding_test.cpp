#include "binding_printers.h"
#include "bindings/gesture_binding.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(GestureBindingTest, NewBindingIsEnabledAndHasAUniqueIdentifier) {
    const GestureBinding one;
    const GestureBinding other;
    EXPECT_TRUE(one.enabled);
    EXPECT_NE(one.id, other.id);
}

TEST(GestureBindingTest, CopyKeepsTheIdentifier) {
    const GestureBinding one;
    GestureBinding other = one;
    EXPECT_EQ(one, other);
    other.enabled = false;
    EXPECT_EQ(one.id, other.id);
}

TEST(GestureBindingTest, EqualityComparesAllFiveFields) {
    const GestureBinding binding{.gesture = GestureType::pinchIn,
                                 .action = LockScreen{},
                                 .scope = AppScope{"org.example.Notes", "Notes"}};
    EXPECT_EQ(binding, GestureBinding(binding));
    const auto changed = [&binding](auto change) {
        GestureBinding copy = binding;
        change(copy);
        return copy;
    };
    EXPECT_NE(binding, changed([](auto& copy) { copy.id = Uuid::generate(); }));
    EXPECT_NE(binding, changed([](auto& copy) { copy.gesture = GestureType::pinchOut; }));
    EXPECT_NE(binding, changed([](auto& copy) { copy.action = MissionControl{}; }));
    EXPECT_NE(binding, changed([](auto& copy) { copy.scope = GlobalScope{}; }));
    EXPECT_NE(binding, changed([](auto& copy) { copy.enabled = false; }));
}

} // namespace
} // namespace glidemap
