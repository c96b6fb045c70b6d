// Tests a machine with 64 touchpads: the watchdog must not treat the time that the driver needs to
// open them on startup as a stall.

#include "click_filter_session.h"
#include "deadline.h"
#include "driver_session.h"
#include "event_reader.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

constexpr std::size_t padCount = 64;

// Returns the number of devices that the desktop has opened.
long added(const Process& desktop) {
    long count = 0;
    for (std::size_t at = 0; (at = desktop.output().find("DEVICE_ADDED", at)) != std::string::npos;
         ++at) {
        ++count;
    }
    return count;
}

TEST(ManyPadsTest, EveryTouchpadIsGrabbedOnceAndStaysGrabbed) {
    if (!std::filesystem::exists("/usr/bin/libinput")) {
        GTEST_SKIP() << "libinput-tools is not installed";
    }
    std::vector<std::unique_ptr<VirtualPad>> pads;
    for (std::size_t number = 0; number < padCount; ++number) {
        pads.push_back(
            std::make_unique<VirtualPad>(ordinaryPad(), "virtual/pad" + std::to_string(number)));
    }
    Process desktop({"/usr/bin/stdbuf", "-oL", "/usr/bin/libinput", "debug-events"});
    const Deadline start;
    while (added(desktop) < long{padCount} && desktop.waitForMoreOutput(start.milliseconds())) {
    }
    DriverSession session;
    ASSERT_EQ(session.devices().size(), padCount);
    ClickFilterSession filter(session);
    filter.switchOn(true);

    const Deadline deadline(std::chrono::seconds(240));
    while (added(desktop) < 2 * long{padCount} &&
           desktop.waitForMoreOutput(deadline.milliseconds())) {
    }
    ASSERT_EQ(added(desktop), 2 * long{padCount}) << "a clone failed or was made twice";
    filter.waitUntilIntroduced();
    for (const driver::Device device : session.devices()) {
        EXPECT_EQ(filter.obstacle(device), "");
    }
    EXPECT_EQ(cloneNodes().size(), padCount);
    for (const auto& pad : pads) {
        EventReader others(pad->node());
        pad->write(fingerDown(0, 7, 1000, 500));
        session.settle(*pad);
        EXPECT_TRUE(others.isQuiet()) << pad->node();
    }
    EXPECT_TRUE(filter.asked().empty()) << "the driver stalled";
}

} // namespace
} // namespace glidemap::test
