// Tests clones that no program reads: the driver does not grab the touchpad, and reports the
// reason.

#include "click_filter_session.h"
#include "driver_session.h"
#include "event_reader.h"
#include "forwarded_pad.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

class GrabLimitsTest : public testing::Test {
protected:
    // Expects that the driver does not grab the touchpad.
    void expectItIsLeftAlone(const std::string& obstacle) {
        filter.switchOn(true);
        for (int round = 0; filter.obstacle(device) == driver::cloneIsNew || round < 3; ++round) {
            pad.write(together({fingerDown(0, round, 1000, 500), {leftDown}}));
            pad.write(together({fingerUp(0), {leftUp}}));
            const auto received = others.readUntil(leftUp);
            EXPECT_TRUE(contains(received, leftDown));
            EXPECT_TRUE(contains(received, {EV_ABS, ABS_MT_TRACKING_ID, round}));
            session.settle(pad);
            others.readUntil(markerUp);
            session.waitUntilAsleep(); // the driver may retry after any frame
        }
        EXPECT_EQ(filter.obstacle(device), obstacle);
        EXPECT_TRUE(filter.asked().empty());
        EXPECT_TRUE(waitForCloneCount(0));
    }

    VirtualPad pad{ordinaryPad()};
    EventReader others{pad.node()};
    DriverSession session;
    ClickFilterSession filter{session};
    driver::Device device = session.devices().at(0);
};

void control(const char* option) {
    Process udevadm({"/bin/udevadm", "control", option});
    EXPECT_EQ(udevadm.waitForEnd(), 0) << option;
}

TEST_F(GrabLimitsTest, DoesNotGrabWhileUdevIsStopped) {
    control("--stop-exec-queue");
    expectItIsLeftAlone("udev has not announced the touchpad's clone as a touchpad");
    control("--start-exec-queue");
    filter.switchOn(true);
    const EventReader clone(waitForClone());
    filter.waitUntilIntroduced();
    EXPECT_EQ(filter.obstacle(device), "");
    pad.write(fingerDown(0, 7, 1000, 500));
    session.settle(pad);
    EXPECT_TRUE(clone.isTouched());
    EXPECT_TRUE(others.isQuiet());
}

TEST_F(GrabLimitsTest, DoesNotGrabWhileNoProgramOpensTheClone) {
    expectItIsLeftAlone("no program has opened the touchpad's clone");
}

// Creates keyboards with one key until the kernel has no free event node.
class UsedUpNodes {
public:
    UsedUpNodes() {
        constexpr rlim_t many = 4096;
        const rlimit limit{many, many};
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
        while (makeOne() && files.size() < many / 2) {
        }
        EXPECT_GT(files.size(), 100U);
    }
    UsedUpNodes(const UsedUpNodes&) = delete;
    UsedUpNodes& operator=(const UsedUpNodes&) = delete;
    ~UsedUpNodes() {
        for (const int file : files) {
            close(file);
        }
    }

private:
    // Returns false if the kernel creates no node for the keyboard.
    bool makeOne() {
        const int file = open("/dev/uinput", O_WRONLY | O_CLOEXEC);
        files.push_back(file);
        uinput_setup setup{};
        setup.name[0] = 'k';
        std::array<char, 64> name{};
        const bool isMade =
            ioctl(file, UI_SET_EVBIT, EV_KEY) == 0 && ioctl(file, UI_SET_KEYBIT, KEY_A) == 0 &&
            ioctl(file, UI_DEV_SETUP, &setup) == 0 && ioctl(file, UI_DEV_CREATE) == 0 &&
            ioctl(file, UI_GET_SYSNAME(name.size()), name.data()) >= 0;
        EXPECT_TRUE(isMade);
        if (!isMade) {
            return false;
        }
        const auto device = std::filesystem::path("/sys/devices/virtual/input") / name.data();
        for (const auto& entry : std::filesystem::directory_iterator(device)) {
            if (entry.path().filename().string().starts_with("event")) {
                return true;
            }
        }
        return false;
    }

    std::vector<int> files;
};

TEST_F(GrabLimitsTest, DoesNotGrabWithoutAnEventNodeForTheClone) {
    control("--stop-exec-queue"); // keeps udev from processing the many keyboards
    const UsedUpNodes keyboards;
    expectItIsLeftAlone("the kernel has made no event node for the touchpad's clone");
}

} // namespace
} // namespace glidemap::test
