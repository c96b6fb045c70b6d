#include "drivers/evdev/touchpad_driver.h"
#include "fake_pads.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <thread>

namespace glidemap::test {
namespace {

// The driver's callbacks have no context, so one shared object collects the reports.
class Listener {
public:
    struct Report {
        driver::Device device;
        std::string contacts; // each contact as `identifier:state`
    };

    static Listener& shared() {
        static Listener listener;
        return listener;
    }

    void reset() {
        const std::lock_guard lock(mutex);
        reports.clear();
        buttons.clear();
        onReport = {};
    }

    static std::int32_t contact(driver::Device device, const MTTouch* records, std::int32_t count,
                                double /*timestamp*/, std::int32_t /*frame*/) {
        std::string contacts;
        for (std::int32_t index = 0; index < count; ++index) {
            contacts += (index > 0 ? " " : "") + std::to_string(records[index].identifier) + ":" +
                        std::to_string(records[index].state);
        }
        std::function<void(driver::Device)> reaction;
        {
            Listener& self = shared();
            const std::lock_guard lock(self.mutex);
            self.reports.push_back({device, contacts});
            reaction = self.onReport;
            self.changed.notify_all();
        }
        if (reaction) {
            reaction(device);
        }
        return 0;
    }

    static void button(driver::Device /*device*/, std::int32_t button, bool down,
                       double /*timestamp*/) {
        Listener& self = shared();
        const std::lock_guard lock(self.mutex);
        self.buttons.emplace_back(button, down);
        self.changed.notify_all();
    }

    void react(std::function<void(driver::Device)> reaction) {
        const std::lock_guard lock(mutex);
        onReport = std::move(reaction);
    }

    // Waits for at least `count` reports and returns all reports.
    std::vector<std::string> wait(std::size_t count) {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, limit, [&] { return reports.size() >= count; });
        std::vector<std::string> result;
        for (const Report& report : reports) {
            result.push_back(report.contacts);
        }
        return result;
    }

    std::vector<std::pair<std::int32_t, bool>> waitForButtons(std::size_t count) {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, limit, [&] { return buttons.size() >= count; });
        return buttons;
    }

    driver::Device deviceOf(std::size_t report) {
        const std::lock_guard lock(mutex);
        return reports.at(report).device;
    }

    static constexpr std::chrono::seconds limit{120};

private:
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<Report> reports;
    std::vector<std::pair<std::int32_t, bool>> buttons;
    std::function<void(driver::Device)> onReport;
};

using Texts = std::vector<std::string>;

std::vector<InputEvent> fingerDown(std::int32_t trackingId) {
    return {{1, EV_ABS, ABS_MT_TRACKING_ID, trackingId}, {1, EV_SYN, SYN_REPORT, 0}};
}

std::vector<InputEvent> fingerAt(std::int32_t x) {
    return {{1, EV_ABS, ABS_MT_POSITION_X, x}, {1, EV_SYN, SYN_REPORT, 0}};
}

std::vector<InputEvent> fingerUp() {
    return fingerDown(-1);
}

class TouchpadDriverTest : public testing::Test {
protected:
    TouchpadDriverTest() { Listener::shared().reset(); }

    driver::Device started(const std::string& node, const std::string& name) {
        pads->plug(node, name);
        const driver::Device device = driver.createList().back();
        driver.addCallback(device, &Listener::contact);
        driver.start(device);
        return device;
    }

    void send(const std::string& node, const std::vector<InputEvent>& events) {
        pads->stream(node)->send(events);
    }

    Listener& received = Listener::shared();
    std::shared_ptr<FakePads> pads = std::make_shared<FakePads>();
    TouchpadDriver driver{std::make_unique<FakeDirectory>(pads)};
};

TEST_F(TouchpadDriverTest, ListsReadableTouchpadsAndCountsUnreadableTouchpads) {
    EXPECT_EQ(driver.createList().size(), 0U);
    EXPECT_EQ(driver.unreadableCount(), 0);
    pads->plug("event1", "one");
    pads->plug("event2", "two", false);
    pads->plug("event3", "three");
    EXPECT_EQ(driver.createList().size(), 2U);
    EXPECT_EQ(driver.unreadableCount(), 1);
    pads->makeReadable("event2");
    EXPECT_EQ(driver.createList().size(), 3U);
    EXPECT_EQ(driver.unreadableCount(), 0);
}

TEST_F(TouchpadDriverTest, TouchpadIsTheSameDeviceInEveryList) {
    pads->plug("event1", "one");
    pads->plug("event2", "two");
    const auto before = driver.createList();
    pads->unplug("event1");
    pads->plug("event7", "one");
    const auto after = driver.createList();
    ASSERT_EQ(before.size(), 2U);
    EXPECT_EQ(after, (std::vector{before[1], before[0]}));
}

TEST_F(TouchpadDriverTest, TwoTouchpadsOfTheSameModelAreTwoDevices) {
    pads->plug("event1", "twin");
    pads->plug("event2", "twin");
    const auto list = driver.createList();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_NE(list[0], list[1]);
    for (const driver::Device device : list) {
        driver.addCallback(device, &Listener::contact);
        driver.start(device);
    }
    send("event2", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(2), (Texts{"1:3", "1:3"}));
    EXPECT_NE(received.deviceOf(0), received.deviceOf(1));
    EXPECT_EQ(driver.createList(), list);
}

TEST_F(TouchpadDriverTest, ReportsTouchesAfterStart) {
    const auto device = started("event1", "pad");
    send("event1", fingerDown(1));
    send("event1", fingerAt(20));
    send("event1", fingerUp());
    EXPECT_EQ(received.wait(3), (Texts{"1:3", "1:4", "1:7"}));
    EXPECT_EQ(received.deviceOf(0), device);
}

TEST_F(TouchpadDriverTest, ReportsContactsThatTouchedBeforeTheStart) {
    pads->plug("event1", "pad");
    send("event1", fingerDown(1));
    const auto device = driver.createList().at(0);
    driver.addCallback(device, &Listener::contact);
    driver.start(device);
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
}

TEST_F(TouchpadDriverTest, ReportsButtonsAfterTheContactsOfTheSameFrame) {
    driver.setButtonCallback(&Listener::button);
    started("event1", "pad");
    received.react([this](driver::Device) {
        EXPECT_TRUE(received.waitForButtons(0).empty()) << "the button came first";
    });
    send(
        "event1",
        {{1, EV_KEY, BTN_LEFT, 1}, {1, EV_ABS, ABS_MT_TRACKING_ID, 1}, {1, EV_SYN, SYN_REPORT, 0}});
    EXPECT_EQ(received.waitForButtons(1), (std::vector{std::pair(0, true)}));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
    driver.setButtonCallback(nullptr);
    send("event1", {{1, EV_KEY, BTN_LEFT, 0}, {1, EV_SYN, SYN_REPORT, 0}});
    received.react({});
    send("event1", fingerUp());
    EXPECT_EQ(received.wait(2).size(), 2U);
    EXPECT_EQ(received.waitForButtons(1).size(), 1U);
}

TEST_F(TouchpadDriverTest, UnpluggingEndsTheTouchAndReconnectingResumesReports) {
    const auto device = started("event1", "pad");
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
    pads->unplug("event1");
    EXPECT_EQ(received.wait(2), (Texts{"1:3", ""}));
    pads->plug("event5", "another");
    pads->plug("event9", "pad");
    send("event9", fingerDown(1));
    EXPECT_EQ(received.wait(3), (Texts{"1:3", "", "1:3"}));
    EXPECT_EQ(received.deviceOf(2), device);
}

TEST_F(TouchpadDriverTest, UnpluggingWithoutATouchReportsNothing) {
    started("event1", "pad");
    pads->unplug("event1");
    pads->plug("event2", "pad");
    send("event2", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
}

TEST_F(TouchpadDriverTest, ReconnectedTouchpadResumesWhenAccessIsGrantedLater) {
    started("event1", "pad");
    send("event1", fingerDown(1));
    received.wait(1);
    pads->unplug("event1");
    received.wait(2);
    pads->plug("event2", "pad", false);
    send("event2", fingerDown(1));
    pads->change();
    pads->makeReadable("event2");
    EXPECT_EQ(received.wait(3), (Texts{"1:3", "", "1:3"}));
}

TEST_F(TouchpadDriverTest, TouchpadWithoutAccessIsClosedUntilAccessReturns) {
    const auto device = started("event1", "pad");
    const auto stream = pads->stream("event1");
    send("event1", fingerDown(1));
    received.wait(1);
    pads->makeReadable("event1", false);
    EXPECT_TRUE(driver.createList().empty());
    EXPECT_EQ(driver.unreadableCount(), 1);
    EXPECT_EQ(received.wait(2), (Texts{"1:3", ""})) << "the touch ends";
    EXPECT_TRUE(pads->waitForWatchCount(1));
    stream->send(fingerUp());
    pads->change();
    stream->restart({});
    pads->makeReadable("event1");
    EXPECT_EQ(driver.createList(), std::vector{device});
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(3), (Texts{"1:3", "", "1:3"}));
    EXPECT_TRUE(pads->waitForWatchCount(0));
}

TEST_F(TouchpadDriverTest, ReadsTheTouchpadAgainIfAccessReturnsImmediately) {
    const auto device = started("event1", "pad");
    for (int turn = 0; turn < 50; ++turn) {
        pads->makeReadable("event1", false);
        driver.createList();
        pads->makeReadable("event1");
        EXPECT_EQ(driver.createList(), std::vector{device});
        const std::size_t before = received.wait(0).size();
        send("event1", fingerDown(1));
        received.wait(before + 1);
        send("event1", fingerUp());
        ASSERT_EQ(received.wait(before + 2).size(), before + 2) << "turn " << turn;
    }
}

TEST_F(TouchpadDriverTest, TouchpadWithoutAccessMayBeStopped) {
    const auto device = started("event1", "pad");
    pads->makeReadable("event1", false);
    driver.createList();
    driver.stop(device);
    pads->makeReadable("event1");
    driver.start(device);
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
}

TEST_F(TouchpadDriverTest, DoesNotWatchForDevicesWhileNoTouchpadIsMissing) {
    started("event1", "pad");
    send("event1", fingerDown(1));
    received.wait(1);
    EXPECT_TRUE(pads->waitForWatchCount(0));
    pads->unplug("event1");
    EXPECT_TRUE(pads->waitForWatchCount(1));
    pads->plug("event1", "pad");
    send("event1", fingerDown(1));
    received.wait(3);
    EXPECT_TRUE(pads->waitForWatchCount(0));
}

TEST_F(TouchpadDriverTest, TouchpadWithAReadErrorIsNotReopenedUntilDevicesChange) {
    started("event1", "pad");
    const auto other = started("event2", "other");
    const int before = pads->timesOpened();
    pads->stream("event1")->end(OpenPad::Read::broken);
    EXPECT_TRUE(pads->waitForWatchCount(1));
    send("event2", fingerDown(1));
    received.wait(1);
    send("event2", fingerUp());
    received.wait(2);
    EXPECT_EQ(received.deviceOf(1), other);
    EXPECT_EQ(pads->timesOpened(), before);
    pads->plug("event1", "pad");
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(3).size(), 3U);
}

TEST_F(TouchpadDriverTest, TouchpadMissingAtStartReportsAfterItIsReconnected) {
    pads->plug("event1", "pad");
    const auto device = driver.createList().at(0);
    driver.addCallback(device, &Listener::contact);
    pads->unplug("event1");
    driver.start(device);
    pads->plug("event2", "pad");
    send("event2", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
}

TEST_F(TouchpadDriverTest, NoCallbackRunsAfterStopHasReturned) {
    const auto device = started("event1", "pad");
    const auto stream = pads->stream("event1");
    for (int round = 0; round < 50; ++round) {
        const std::size_t before = received.wait(0).size();
        stream->send(fingerDown(1));
        received.wait(before + 1);
        std::thread busy([&stream] {
            for (int x = 0; x < 100; ++x) {
                stream->send(fingerAt(x));
            }
        });
        driver.stop(device);
        const std::size_t stopped = received.wait(0).size();
        busy.join();
        EXPECT_EQ(received.wait(0).size(), stopped);
        driver.start(device);
        stream->send(fingerUp());
    }
}

TEST_F(TouchpadDriverTest, DeviceMayBeStoppedFromItsOwnCallback) {
    const auto device = started("event1", "pad");
    received.react([this](driver::Device reported) { driver.stop(reported); });
    auto events = fingerDown(1);
    for (const InputEvent& event : fingerAt(50)) {
        events.push_back(event);
    }
    send("event1", events);
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
    received.react({});
    driver.stop(device); // waits only until the callback has returned
    driver.start(device);
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(2).size(), 2U);
}

TEST_F(TouchpadDriverTest, DeviceMayBeRestartedFromItsOwnCallback) {
    started("event1", "pad");
    received.react([this](driver::Device device) {
        received.react({});
        driver.stop(device);
        driver.start(device);
    });
    send("event1", fingerDown(1));
    EXPECT_EQ(received.wait(1), (Texts{"1:3"}));
    send("event1", fingerDown(2));
    EXPECT_EQ(received.wait(2), (Texts{"1:3", "1:3"}));
}

TEST_F(TouchpadDriverTest, EachDeviceStopsIndependently) {
    const auto one = started("event1", "one");
    started("event2", "two");
    driver.stop(one);
    send("event1", fingerDown(1));
    send("event2", fingerDown(1));
    send("event2", fingerUp());
    EXPECT_EQ(received.wait(2), (Texts{"1:3", "1:7"}));
}

TEST_F(TouchpadDriverTest, RemovedCallbackIsNotCalled) {
    const auto device = started("event1", "one");
    started("event2", "two");
    driver.removeCallback(device, &Listener::contact);
    send("event1", fingerDown(1));
    send("event2", fingerDown(1));
    send("event2", fingerUp());
    EXPECT_EQ(received.wait(2), (Texts{"1:3", "1:7"}));
}

TEST_F(TouchpadDriverTest, CallbackThatIsAddedTwiceIsCalledOnce) {
    const auto device = started("event1", "pad");
    driver.addCallback(device, &Listener::contact);
    driver.start(device);
    send("event1", fingerDown(1));
    send("event1", fingerUp());
    EXPECT_EQ(received.wait(2), (Texts{"1:3", "1:7"}));
}

TEST_F(TouchpadDriverTest, EachDeviceHasTheNameOfItsTouchpad) {
    pads->plug("event1", "one");
    pads->plug("event2", "two");
    const auto list = driver.createList();
    EXPECT_STREQ(driver.name(list.at(0)), "one");
    EXPECT_STREQ(driver.name(list.at(1)), "two");
    EXPECT_EQ(driver.name(nullptr), nullptr);
}

// A search of all nodes for each touchpad would take four thousand look-ups for 64 touchpads.
TEST_F(TouchpadDriverTest, StartsManyTouchpadsWithoutScanningAllDevicesEachTime) {
    constexpr int count = 64;
    for (int number = 0; number < count; ++number) {
        pads->plug("event" + std::to_string(number), "one of many"); // all have the same identity
    }
    const auto list = driver.createList();
    const int searches = pads->timesSearched();
    for (const driver::Device device : list) {
        driver.start(device);
    }
    EXPECT_EQ(pads->timesOpened(), count);
    EXPECT_EQ(pads->timesSearched(), searches);
}

TEST_F(TouchpadDriverTest, InvalidDevicesAreIgnored) {
    int something = 0;
    for (const driver::Device device : {driver::Device(nullptr), driver::Device(&something)}) {
        driver.addCallback(device, &Listener::contact);
        driver.start(device);
        driver.stop(device);
        driver.removeCallback(device, &Listener::contact);
    }
    EXPECT_EQ(driver.createList().size(), 0U);
}

} // namespace
} // namespace glidemap::test
