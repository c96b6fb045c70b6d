#include "platform/linux/access/linux_click_tap.h"

#include <gtest/gtest.h>

#include <future>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

namespace glidemap {

std::ostream& operator<<(std::ostream& stream, const ClickEvent& event) {
    return stream << "type " << static_cast<int>(event.type) << " button " << event.button;
}

namespace {

using driver::clickFilterButtonDown;
using driver::clickFilterButtonUp;
using driver::clickFilterDisabledByTimeout;

TouchDriverPlatform filterDriver(const std::string& name) {
    return {FILTER_DRIVER_FOLDER "/libfilter-driver-" + name + ".so", [](void* /*handle*/) {
                return TouchDriverPlatform::ListAccess{};
            }};
}

// Loads the driver and gives the test access to it.
class FilterDriver {
public:
    explicit FilterDriver(const std::string& name = "complete") : manager(filterDriver(name)) {
        function<void (*)()>("TestDriverReset")();
    }

    const MultitouchDeviceManager manager;

    std::string calls() const { return function<const char* (*)()>("TestDriverCalls")(); }

    // Returns 1 if the filter drops the button change, 0 if not, or -1 without a filter.
    int click(int event, int button) const {
        return function<int (*)(int, int)>("TestDriverClick")(event, button);
    }

    void waitForSwitchCalls(int count) const {
        function<void (*)(int)>("TestDriverWaitForSwitchCalls")(count);
    }

private:
    template <typename Function>
    Function function(const char* name) const {
        return reinterpret_cast<Function>(manager.optionalSymbol(name));
    }
};

ClickTap::Verdict passAll(const ClickEvent& /*event*/) {
    return ClickTap::Verdict::pass;
}

TEST(LinuxClickTapTest, CreatesNoTapIfTheDriverCannotFilterClicks) {
    for (const char* name : {"cannot", "without-can-filter", "without-set", "without-switch"}) {
        const FilterDriver driver(name);
        LinuxClickTap tap(driver.manager);
        EXPECT_FALSE(tap.create(passAll)) << name;
        tap.setEnabled(true);
        tap.setNeeded(true);
        tap.remove();
        EXPECT_EQ(driver.calls(), "") << name;
    }
}

TEST(LinuxClickTapTest, CreatesNoTapWithoutADriver) {
    const MultitouchDeviceManager manager(filterDriver("of-no-such-name"));
    LinuxClickTap tap(manager);
    EXPECT_FALSE(tap.create(passAll));
}

TEST(LinuxClickTapTest, TapStartsDisabledAndItsRemovalUninstallsTheFilter) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    ASSERT_TRUE(tap.create(passAll));
    EXPECT_EQ(driver.calls(), "set");
    tap.setEnabled(true);
    tap.setEnabled(false);
    tap.setEnabled(true);
    tap.remove();
    EXPECT_EQ(driver.calls(), "set; on; off; on; take away; off");
    tap.remove();
    tap.setEnabled(true);
    EXPECT_EQ(driver.calls(), "set; on; off; on; take away; off");
    EXPECT_EQ(driver.click(clickFilterButtonDown, 0), -1);
}

TEST(LinuxClickTapTest, DestructionRemovesTheFilter) {
    const FilterDriver driver;
    {
        LinuxClickTap tap(driver.manager);
        ASSERT_TRUE(tap.create(passAll));
    }
    EXPECT_EQ(driver.calls(), "set; take away; off");
}

TEST(LinuxClickTapTest, CanBeCreatedAgainAfterRemoval) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    ASSERT_TRUE(tap.create(passAll));
    tap.setEnabled(true);
    tap.remove();
    ASSERT_TRUE(tap.create([](const ClickEvent&) { return ClickTap::Verdict::drop; }));
    EXPECT_EQ(driver.calls(), "set; on; take away; off; set");
    EXPECT_EQ(driver.click(clickFilterButtonDown, 0), 1);
}

TEST(LinuxClickTapTest, FilterRunsOnlyWhileTheTapIsEnabledAndNeeded) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    tap.setNeeded(false);
    ASSERT_TRUE(tap.create(passAll));
    tap.setEnabled(true);
    EXPECT_EQ(driver.calls(), "set; off");
    tap.setNeeded(true);
    EXPECT_EQ(driver.calls(), "set; off; on");
    tap.setEnabled(false);
    tap.setNeeded(false);
    EXPECT_EQ(driver.calls(), "set; off; on; off; off");
}

TEST(LinuxClickTapTest, EachDriverEventBecomesATapEvent) {
    struct Row {
        int event;
        int button;
        ClickEvent expected;
    };
    const Row rows[] = {
        {clickFilterButtonDown, 0, {ClickEventType::leftMouseDown, 0}},
        {clickFilterButtonUp, 0, {ClickEventType::leftMouseUp, 0}},
        {clickFilterButtonDown, 1, {ClickEventType::rightMouseDown, 1}},
        {clickFilterButtonUp, 1, {ClickEventType::rightMouseUp, 1}},
        {clickFilterButtonDown, 2, {ClickEventType::other, 2}},
        {clickFilterButtonUp, 2, {ClickEventType::other, 2}},
        {clickFilterDisabledByTimeout, 0, {ClickEventType::tapDisabledByTimeout, 0}},
        {99, 0, {ClickEventType::other, 0}},
    };
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    std::vector<ClickEvent> seen;
    ASSERT_TRUE(tap.create([&](const ClickEvent& event) {
        seen.push_back(event);
        return ClickTap::Verdict::pass;
    }));
    std::vector<ClickEvent> expected;
    for (const Row& row : rows) {
        EXPECT_EQ(driver.click(row.event, row.button), 0);
        expected.push_back(row.expected);
    }
    EXPECT_EQ(seen, expected);
}

TEST(LinuxClickTapTest, FilterReturnsTheCallbacksVerdict) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    ASSERT_TRUE(tap.create([](const ClickEvent& event) {
        return event.button == 1 ? ClickTap::Verdict::drop : ClickTap::Verdict::pass;
    }));
    EXPECT_EQ(driver.click(clickFilterButtonDown, 0), 0);
    EXPECT_EQ(driver.click(clickFilterButtonDown, 1), 1);
}

TEST(LinuxClickTapTest, CallbackMayEnableATapDisabledByTimeout) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    ASSERT_TRUE(tap.create([&](const ClickEvent& event) {
        if (event.type == ClickEventType::tapDisabledByTimeout) {
            tap.setEnabled(true);
        }
        return ClickTap::Verdict::pass;
    }));
    tap.setEnabled(true);
    driver.click(clickFilterDisabledByTimeout, 0);
    EXPECT_EQ(driver.calls(), "set; on; on");
}

// While the main thread disables the tap, it waits in the driver until the reader's callback
// returns. Meanwhile, the callback enables the tap.
TEST(LinuxClickTapTest, EnablingTheTapDuringAConcurrentDisablingTakesEffect) {
    const FilterDriver driver;
    LinuxClickTap tap(driver.manager);
    std::promise<void> reading;
    ASSERT_TRUE(tap.create([&](const ClickEvent&) {
        reading.set_value();
        driver.waitForSwitchCalls(1);
        tap.setEnabled(true);
        return ClickTap::Verdict::pass;
    }));
    std::thread reader([&] { driver.click(clickFilterButtonDown, 0); });
    reading.get_future().wait();
    tap.setEnabled(false);
    reader.join();
    EXPECT_EQ(driver.calls(), "set; off; on");
}

} // namespace
} // namespace glidemap
