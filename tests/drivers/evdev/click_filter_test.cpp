// Tests the click filter as a program uses it: the test sets and switches the filter, and the
// driver's thread calls it.

#include "drivers/evdev/touchpad_driver.h"
#include "fake_pads.h"
#include "fake_time.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

namespace glidemap::test {
namespace {

using Texts = std::vector<std::string>;

std::vector<InputEvent> frame(std::vector<InputEvent> events) {
    events.push_back({1, EV_SYN, SYN_REPORT, 0});
    return events;
}

const auto fingerDown = frame({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}});
const auto fingerUp = frame({{1, EV_ABS, ABS_MT_TRACKING_ID, -1}});
const auto leftDown = frame({{1, EV_KEY, BTN_LEFT, 1}});
const auto leftUp = frame({{1, EV_KEY, BTN_LEFT, 0}});

// A global variable, because the contact callback has no context.
std::atomic<int> reportedContacts = 0;

std::int32_t contact(driver::Device, const MTTouch*, std::int32_t count, double, std::int32_t) {
    reportedContacts = count;
    return 0;
}

class ClickFilterTest : public testing::Test {
protected:
    struct Asked {
        driver::Device device;
        std::int32_t event;
        int contacts; // the number of contacts in the last report before the call
    };

    ClickFilterTest() {
        reportedContacts = 0;
        pads->plug("event1", "pad");
        device = driver.createList().at(0);
        driver.addCallback(device, &contact);
        driver.setClickFilter(&filter, this);
        driver.start(device);
    }

    ~ClickFilterTest() override { driver.setClickFilter(nullptr, nullptr); }

    static bool filter(void* context, driver::Device device, std::int32_t event,
                       std::int32_t /*button*/) {
        auto& self = *static_cast<ClickFilterTest*>(context);
        {
            const std::lock_guard lock(self.mutex);
            self.askedSoFar.push_back({device, event, reportedContacts});
            self.changed.notify_all();
        }
        return self.answer ? self.answer(event) : true;
    }

    std::vector<Asked> waitForAsked(std::size_t count) {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, FakeSystem::limit, [&] { return askedSoFar.size() >= count; });
        return askedSoFar;
    }

    // Waits for the grab, and advances the time so that the clone becomes ready. Returns false on a
    // time-out.
    bool isTaken(const FakeSystem& system) {
        constexpr std::chrono::milliseconds step = CloneIntroduction::readerGracePeriod;
        const auto deadline = std::chrono::steady_clock::now() + FakeSystem::limit;
        while (!system.waitUntilGrabbed(true, step)) {
            if (std::chrono::steady_clock::now() >= deadline) {
                return false;
            }
            time.advance(step);
        }
        return true;
    }

    void send(const std::vector<InputEvent>& events) { pads->stream("event1")->send(events); }
    FakeSystem& system() { return *pads->stream("event1")->system(); }

    std::mutex mutex;
    std::condition_variable changed;
    std::vector<Asked> askedSoFar;
    std::function<bool(std::int32_t)> answer; // set before the filter is called

    FakeTime time;
    std::shared_ptr<FakePads> pads = std::make_shared<FakePads>();
    TouchpadDriver driver{std::make_unique<FakeDirectory>(pads), time};
    driver::Device device = nullptr;
};

TEST_F(ClickFilterTest, GrabsAndUngrabsWithoutWaitingForAnEvent) {
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    driver.switchClickFilter(false);
    EXPECT_TRUE(system().waitUntilGrabbed(false));
    while (system().journal().size() < 4) {
        // Advance the time repeatedly, because the reader may not be waiting yet.
        time.advance(PadInterception::cloneRetention);
        std::this_thread::yield();
    }
    EXPECT_EQ(system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

TEST_F(ClickFilterTest, RemovingTheFilterUngrabsTheTouchpad) {
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    driver.setClickFilter(nullptr, nullptr);
    EXPECT_TRUE(system().waitUntilGrabbed(false));
}

TEST_F(ClickFilterTest, CallsTheFilterAfterTheContactsOfTheSameFrame) {
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(frame({{1, EV_KEY, BTN_LEFT, 1}, {1, EV_ABS, ABS_MT_TRACKING_ID, 5}}));
    const auto asked = waitForAsked(1);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].device, device);
    EXPECT_EQ(asked[0].event, driver::clickFilterButtonDown);
    EXPECT_EQ(asked[0].contacts, 1);
    EXPECT_EQ(system().wait(3), (Texts{"clone", "grab", "3:57=5 3:55=2"}));
}

TEST_F(ClickFilterTest, ButtonCallbackReceivesDroppedButtonChanges) {
    static std::atomic<int> received;
    received = 0;
    driver.setButtonCallback([](driver::Device, std::int32_t, bool, double) { ++received; });
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(leftDown);
    send(leftUp);
    EXPECT_EQ(waitForAsked(2).size(), 2U);
    EXPECT_EQ(received, 2);
    driver.setButtonCallback(nullptr);
}

TEST_F(ClickFilterTest, GrabWaitsUntilAFingerThatTouchedBeforeTheStartHasLifted) {
    driver.stop(device);
    send(fingerDown);
    driver.start(device);
    driver.switchClickFilter(true);
    send(leftDown);
    send(leftUp);
    EXPECT_EQ(system().wait(1), (Texts{"clone"}));
    send(fingerUp);
    EXPECT_TRUE(isTaken(system()));
    EXPECT_TRUE(waitForAsked(0).empty());
}

TEST_F(ClickFilterTest, StopUngrabsTheTouchpadBeforeReturning) {
    answer = [](std::int32_t) {
        return false;
    };
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(frame({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}, {1, EV_KEY, BTN_LEFT, 1}}));
    system().wait(3);
    driver.stop(device);
    EXPECT_EQ(system().journal(),
              (Texts{"clone", "grab", "3:57=5 1:272=1", "3:57=-1 1:272=0", "ungrab", "destroy"}));
    send(leftUp);
    send(fingerUp);
    driver.start(device);
    EXPECT_TRUE(isTaken(system())) << "the filter is still switched on";
}

TEST_F(ClickFilterTest, GrabsAReconnectedTouchpadAgain) {
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(leftDown);
    EXPECT_EQ(waitForAsked(1).size(), 1U);
    const auto before = pads->stream("event1")->system();
    pads->unplug("event1");
    const auto asked = waitForAsked(2);
    EXPECT_EQ(asked.back().event, driver::clickFilterButtonUp);
    EXPECT_EQ(before->wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    pads->plug("event4", "pad");
    EXPECT_TRUE(isTaken(*pads->stream("event4")->system()));
}

TEST_F(ClickFilterTest, GrabsAllTouchpadsWithButtons) {
    pads->plug("event2", "other");
    pads->plug("event3", "without");
    pads->stream("event3")->hasButtons = false;
    const auto list = driver.createList();
    driver.start(list.at(1));
    driver.start(list.at(2));
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    EXPECT_TRUE(isTaken(*pads->stream("event2")->system()));
    pads->stream("event3")->send(fingerDown);
    driver.switchClickFilter(false);
    EXPECT_TRUE(pads->stream("event2")->system()->waitUntilGrabbed(false));
    EXPECT_EQ(pads->stream("event3")->system()->journal(), Texts());
}

TEST_F(ClickFilterTest, FilterMayStopTheTouchpad) {
    answer = [this](std::int32_t) {
        driver.stop(device);
        return true;
    };
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(frame({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}, {1, EV_KEY, BTN_LEFT, 1}}));
    EXPECT_EQ(system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

TEST_F(ClickFilterTest, FilterMayRestartTheTouchpadAndRemoveItself) {
    answer = [this](std::int32_t) {
        driver.stop(device);
        driver.start(device);
        driver.setClickFilter(nullptr, nullptr);
        return true;
    };
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(leftDown);
    EXPECT_TRUE(system().waitUntilGrabbed(false));
    send(leftUp);
    driver.setClickFilter(&filter, this);
    EXPECT_TRUE(isTaken(system()));
    EXPECT_EQ(waitForAsked(0).size(), 1U);
}

// The program may destroy the old filter's context once setClickFilter() has returned.
TEST_F(ClickFilterTest, ReplacedFilterIsNotCalledAgain) {
    struct Context {
        std::atomic<bool> alive = true;
        std::atomic<int> asked = 0;
    };
    constexpr auto count = [](void* context, driver::Device, std::int32_t, std::int32_t) {
        auto& self = *static_cast<Context*>(context);
        EXPECT_TRUE(self.alive);
        ++self.asked;
        return true;
    };
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    const auto stream = pads->stream("event1");
    std::atomic<bool> done = false;
    std::thread clicking([&] {
        while (!done) {
            stream->send(leftDown);
            stream->send(leftUp);
            std::this_thread::yield();
        }
    });
    for (int round = 0; round < 100; ++round) {
        Context context;
        driver.setClickFilter(count, &context);
        while (round % 10 == 0 && context.asked == 0) {
            std::this_thread::yield();
        }
        driver.setClickFilter(&filter, this);
        context.alive = false;
    }
    done = true;
    clicking.join();
}

TEST_F(ClickFilterTest, WatchdogUngrabsTheTouchpadWhenTheFilterHangs) {
    std::atomic<bool> hanging = true;
    answer = [&](std::int32_t event) {
        if (event == driver::clickFilterDisabledByTimeout) {
            driver.switchClickFilter(true);
        }
        while (hanging) {
            std::this_thread::yield();
        }
        return true;
    };
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    send(frame({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}, {1, EV_KEY, BTN_LEFT, 1}}));
    EXPECT_EQ(waitForAsked(1).size(), 1U);
    EXPECT_TRUE(time.waitUntilWaitingFor(std::chrono::seconds(1)));
    time.advance(std::chrono::seconds(1));
    EXPECT_EQ(system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    send(frame({{1, EV_ABS, ABS_MT_POSITION_X, 50}})); // the driver must not forward this
    hanging = false;
    const auto asked = waitForAsked(2);
    EXPECT_EQ(asked[1].event, driver::clickFilterDisabledByTimeout);
    EXPECT_EQ(asked[1].device, device);
    send(leftUp);
    send(fingerUp);
    EXPECT_TRUE(isTaken(system()));
    send(fingerDown);
    EXPECT_EQ(system().wait(7),
              (Texts{"clone", "grab", "ungrab", "destroy", "clone", "grab", "3:57=5 3:53=50"}));
    EXPECT_EQ(waitForAsked(2).size(), 2U);
}

// An event of any touchpad wakes the reader, which may then have to wait for the driver's lock
// before it can read. The watchdog must ungrab the forwarded touchpad even if the event came from
// another one.
TEST_F(ClickFilterTest, WatchdogUngrabsTheTouchpadWhenTheReaderWaitsForALock) {
    pads->plug("event2", "without");
    pads->stream("event2")->hasButtons = false;
    driver.start(driver.createList().at(1));
    driver.switchClickFilter(true);
    EXPECT_TRUE(isTaken(system()));
    pads->blockCandidates(true);
    std::thread asking([&] { driver.createList(); });
    EXPECT_TRUE(pads->waitUntilBlocked());
    pads->stream("event2")->send(fingerDown);
    while (system().isGrabbed()) {
        // Advance the time repeatedly, because the watchdog may not be waiting yet.
        time.advance(std::chrono::seconds(1));
        std::this_thread::yield();
    }
    pads->blockCandidates(false);
    asking.join();
    const auto asked = waitForAsked(1);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].event, driver::clickFilterDisabledByTimeout);
    EXPECT_EQ(asked[0].device, device);
}

} // namespace
} // namespace glidemap::test
