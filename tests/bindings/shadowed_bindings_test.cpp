#include "bindings/shadowed_bindings.h"

#include <gmock/gmock.h>

#include <utility>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

GestureBinding bound(GestureType gesture, BindingScope scope, bool enabled = true) {
    GestureBinding binding;
    binding.gesture = gesture;
    binding.scope = std::move(scope);
    binding.enabled = enabled;
    return binding;
}

using enum GestureType;

TEST(ShadowedBindingsTest, HaveAnEarlierEnabledBindingOfTheSameGestureAndScope) {
    EXPECT_THAT(shadowedBindings({bound(pinchIn, GlobalScope{}), bound(pinchOut, GlobalScope{}),
                                  bound(pinchIn, GlobalScope{}), bound(pinchIn, GlobalScope{})}),
                ElementsAre(false, false, true, true));
    EXPECT_THAT(shadowedBindings({}), IsEmpty());
}

TEST(ShadowedBindingsTest, ScopesAreComparedByIdentifier) {
    EXPECT_THAT(
        shadowedBindings({bound(pinchIn, GlobalScope{}), bound(pinchIn, AppScope{"mail", "Mail"}),
                          bound(pinchIn, AppScope{"mail", "邮件"}),
                          bound(pinchIn, AppScope{"files", "Mail"})}),
        ElementsAre(false, false, true, false));
}

TEST(ShadowedBindingsTest, DisabledBindingsNeitherShadowNorAreShadowed) {
    EXPECT_THAT(
        shadowedBindings({bound(pinchIn, GlobalScope{}, false), bound(pinchIn, GlobalScope{}),
                          bound(pinchIn, GlobalScope{}, false)}),
        ElementsAre(false, false, false));
}

TEST(ShadowedBindingsTest, AreNeverMatched) {
    const BindingList list{bound(pinchIn, AppScope{"mail", "Mail"}), bound(pinchIn, GlobalScope{}),
                           bound(pinchIn, AppScope{"mail", "Mail"}), bound(pinchIn, GlobalScope{})};
    const IndexedBindings indexed(list);
    const auto shadowed = shadowedBindings(list);
    for (const char* const front : {"mail", "files"}) {
        const GestureBinding* const matched = indexed.match(pinchIn, front);
        ASSERT_NE(matched, nullptr);
        for (std::size_t index = 0; index < list.size(); ++index) {
            EXPECT_FALSE(shadowed[index] && matched->id == list[index].id) << front;
        }
    }
}

} // namespace
} // namespace glidemap
