#include "macos_test.h"
#include "platform/macos/shell/accessory.h"

namespace glidemap {
namespace {

using testing::ElementsAre;

class AccessoryTest : public MacosTest {};

TEST_F(AccessoryTest, HasNoDockIcon) {
    becomeAccessory();
    EXPECT_THAT(journal(), ElementsAre("setActivationPolicy 1"));
}

TEST_F(AccessoryTest, ActivatesEvenIfAnotherApplicationIsActive) {
    comeForward();
    EXPECT_THAT(journal(), ElementsAre("activateIgnoringOtherApps YES"));
}

} // namespace
} // namespace glidemap
