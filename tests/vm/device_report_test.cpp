// Tests the driver's report about touchpads, clones and uinput, which helps with troubleshooting.

#include "drivers/evdev/device_report.h"
#include "forwarded_pad.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "unprivileged.h"
#include "virtual_pad.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>

#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Lines = std::vector<std::string>;

Lines report() {
    Lines lines;
    void* const driver = dlopen(GLIDEMAP_EVDEV_DRIVER, RTLD_NOW);
    const auto devices =
        reinterpret_cast<driver::ReportDevices>(dlsym(driver, driver::reportDevicesSymbol));
    devices(
        [](void* context, const char* line) { static_cast<Lines*>(context)->emplace_back(line); },
        &lines);
    return lines;
}

auto lineOf(const VirtualPad& pad, const std::string& verdict) {
    return Contains(
        AllOf(StartsWith(pad.node().string() + ", " + pad.shape().name), EndsWith(verdict)));
}

TEST(DeviceReportTest, ReportsATouchpadInUseAndWritableUinput) {
    const VirtualPad pad(ordinaryPad());
    const Lines lines = report();
    EXPECT_THAT(lines,
                Contains(pad.node().string() +
                         ", Ordinary Touchpad (0003:6b67:0001): used, this user may read it"));
    EXPECT_EQ(lines.back(), "/dev/uinput, for clones and for typing: this user may write to it");
}

TEST(DeviceReportTest, NamesMissingAccessRights) {
    const VirtualPad pad(ordinaryPad());
    const Unprivileged unprivileged;
    const Lines lines = report();
    EXPECT_THAT(lines,
                lineOf(pad, ": not used: this user may not read it (mode 0660, group input)"));
    EXPECT_THAT(lines.back(), HasSubstr("this user may not write to it (mode 0"));
}

TEST(DeviceReportTest, NamesTheReasonForIgnoringADevice) {
    PadShape screen = ordinaryPad();
    screen.name = "Screen";
    screen.properties = {INPUT_PROP_DIRECT};
    PadShape oneFinger = ordinaryPad();
    oneFinger.name = "One Finger";
    for (const int axis : {ABS_MT_SLOT, ABS_MT_POSITION_X, ABS_MT_POSITION_Y, ABS_MT_TRACKING_ID}) {
        oneFinger.axes.erase(axis);
    }
    const VirtualPad touchscreen(screen);
    const VirtualPad oldPad(oneFinger);
    const Lines lines = report();
    EXPECT_THAT(lines, lineOf(touchscreen, ": not used: udev does not tag it as a touchpad"));
    EXPECT_THAT(lines, lineOf(oldPad, ": not used: it cannot track separate fingers"));
}

TEST(DeviceReportTest, ListsTheCloneOfAGrabbedTouchpad) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    const auto clones = cloneNodes();
    ASSERT_EQ(clones.size(), 1U);
    EXPECT_THAT(report(), Contains(AllOf(StartsWith(clones.front().string() + ", "),
                                         HasSubstr(": a clone of a touchpad "),
                                         EndsWith("; udev has announced it"))));
    forwarded.switchOff();
    EXPECT_TRUE(waitForCloneCount(0));
    EXPECT_THAT(report(), Not(Contains(HasSubstr(": a clone of a touchpad "))));
}

} // namespace
} // namespace glidemap::test
