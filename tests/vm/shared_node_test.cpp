// Tests a node that a touchpad shares with keys. The driver could read what the user types, so it
// neither opens nor grabs the node. The access rule excludes the node for the same reason.

#include "driver_session.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "process.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace glidemap::test {
namespace {

void expectThatItIsNotOpened(const PadShape& shape, const char* property) {
    const VirtualPad pad(shape);
    ASSERT_EQ(udevProperty(pad.node(), "ID_INPUT_TOUCHPAD"), "1");
    ASSERT_EQ(udevProperty(pad.node(), property), "1");
    const DriverSession session;
    EXPECT_TRUE(session.devices().empty());
    EXPECT_EQ(session.unreadableTouchpads(), 0);
    EXPECT_FALSE(hasOpen("self", pad.node()));
}

TEST(SharedNodeTest, TouchpadThatIsAlsoAKeyboardIsNotOpened) {
    PadShape shape = ordinaryPad();
    for (int key = KEY_ESC; key <= KEY_D; ++key) {
        shape.keys.insert(key); // udev identifies a keyboard by these keys
    }
    expectThatItIsNotOpened(shape, "ID_INPUT_KEYBOARD");
}

TEST(SharedNodeTest, TouchpadWithAKeyIsNotOpened) {
    PadShape shape = ordinaryPad();
    shape.keys.insert(KEY_A);
    expectThatItIsNotOpened(shape, "ID_INPUT_KEY");
}

TEST(SharedNodeTest, TouchpadWithoutKeysIsOpened) {
    const VirtualPad pad(ordinaryPad());
    const DriverSession session;
    EXPECT_EQ(session.devices().size(), 1U);
    EXPECT_TRUE(hasOpen("self", pad.node()));
}

} // namespace
} // namespace glidemap::test
