// The kernel notifies the driver when programs open and close a clone. It merges consecutive equal
// notifications.

#include "click_filter_session.h"
#include "driver_session.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "real_time.h"
#include "virtual_pad.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

namespace glidemap::vm {
namespace {

class CloneReadersTest : public testing::Test {
protected:
    int open() const { return ::open(clone.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }

    const VirtualPad pad{ordinaryPad()};
    DriverSession session;
    ClickFilterSession filter{session};
    const driver::Device device = session.devices().at(0);
    std::filesystem::path clone;
};

TEST_F(CloneReadersTest, CloneIsGrabbedIfOneOfTwoSimultaneousReadersCloses) {
    filter.switchOn(true);
    clone = waitForClone();
    int reader = -1;
    {
        const Punctual beforeTheDriver;
        reader = open();
        const int other = open();
        close(other);
    }
    ASSERT_GE(reader, 0);
    filter.waitUntilIntroduced();
    EXPECT_EQ(filter.obstacle(device), "");
    close(reader);
}

// If a notification of a close were lost, the driver would assume a reader, and no program would
// receive the touchpad's events.
TEST_F(CloneReadersTest, ProgramsThatCloseTheCloneTogetherDoNotCountAsReaders) {
    filter.switchOn(true);
    clone = waitForClone();
    {
        const Punctual beforeTheDriver;
        const int first = open();
        close(::open(pad.node().c_str(), O_RDONLY | O_CLOEXEC)); // separates the two
        const int second = open();
        close(first);
        close(second);
    }
    filter.waitUntilIntroduced();
    EXPECT_EQ(filter.obstacle(device), "no program has opened the touchpad's clone");
}

} // namespace
} // namespace glidemap::vm
