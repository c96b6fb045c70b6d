#include "replay_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;

constexpr const char* noDevice = "未找到多点触摸设备";

const std::string tap = "{\"t\":5,\"touches\":[[1,0.25,0.75,3],[2,0.5,0.75,3]]}\n"
                        "{\"t\":5.008,\"touches\":[[1,0.25,0.75,4],[2,0.5,0.75,4]]}\n"
                        "{\"t\":5.05,\"touches\":[]}\n";

const std::vector<std::string> tapDeliveries = {"1@0.25,0.75 state 3, 2@0.5,0.75 state 3",
                                                "1@0.25,0.75 state 4, 2@0.5,0.75 state 4",
                                                "nothing"};

// Returns only the first deliveries: a looping recording may continue while the test is not
// scheduled.
std::vector<Delivery> firstOf(ReplaySession& session, std::size_t count) {
    auto deliveries = session.waitFor(count);
    deliveries.resize(std::min(count, deliveries.size()));
    return deliveries;
}

TEST(ReplayDriver, PlaysTheRecordingWithCurrentTimes) {
    ReplaySession session;
    session.setRecording(tap);
    const double before = now();
    ASSERT_TRUE(session.start().isRunning());
    const auto deliveries = session.waitFor(3);
    EXPECT_EQ(descriptions(deliveries), tapDeliveries);
    EXPECT_GE(deliveries[0].timestamp, before);
    EXPECT_LE(deliveries[0].timestamp, deliveries[0].arrival);
    EXPECT_NEAR(deliveries[1].timestamp - deliveries[0].timestamp, 0.008, 1e-9);
    EXPECT_NEAR(deliveries[2].timestamp - deliveries[0].timestamp, 0.05, 1e-9);
}

TEST(ReplayDriver, DeliversNoReportEarly) {
    ReplaySession session;
    session.setRecording(tap);
    session.start();
    for (const Delivery& delivery : session.waitFor(3)) {
        EXPECT_GE(delivery.arrival, delivery.timestamp - 1e-6) << delivery.what;
    }
}

TEST(ReplayDriver, SetsTheTimeOfEachContactToTheTimeOfTheReport) {
    ReplaySession session;
    session.setRecording(tap);
    session.start();
    const auto deliveries = session.waitFor(3);
    EXPECT_THAT(deliveries[0].contactTimes,
                ElementsAre(deliveries[0].timestamp, deliveries[0].timestamp));
}

TEST(ReplayDriver, LiftsFingersThatStillTouchAtTheEndOfARecording) {
    ReplaySession session;
    session.setRecording("{\"t\":0,\"touches\":[[1,0.5,0.5,4]]}\n"
                         "{\"t\":0.01,\"button\":0,\"down\":true}\n"
                         "{\"t\":0.02,\"button\":1,\"down\":true}\n"
                         "{\"t\":0.03,\"button\":1,\"down\":false}\n");
    session.start();
    const auto deliveries = session.waitFor(6);
    EXPECT_THAT(descriptions(deliveries),
                ElementsAre("1@0.5,0.5 state 4", "button 0 down", "button 1 down", "button 1 up",
                            "nothing", "button 0 up"));
    EXPECT_GT(deliveries[4].timestamp, deliveries[3].timestamp);
}

TEST(ReplayDriver, PlaysOnceByDefault) {
    const std::size_t before = threadCount();
    ReplaySession session;
    session.setRecording(tap);
    session.start();
    session.waitFor(3);
    waitForThreads(before); // waits until the player's thread has ended
    EXPECT_EQ(session.deliveryCount(), 3U);
}

TEST(ReplayDriver, LoopsWithAPauseAndIncreasingTimes) {
    ReplaySession session;
    session.setRecording(tap);
    ReplaySession::setLooping(true);
    session.start();
    const auto deliveries = firstOf(session, 6);
    std::vector<std::string> twice = tapDeliveries;
    twice.insert(twice.end(), tapDeliveries.begin(), tapDeliveries.end());
    EXPECT_EQ(descriptions(deliveries), twice);
    EXPECT_NEAR(deliveries[3].timestamp - deliveries[2].timestamp, 1, 1e-9);
    EXPECT_NEAR(deliveries[5].timestamp - deliveries[3].timestamp, 0.05, 1e-9);
}

TEST(ReplayDriver, EndsEachPassWithAnEmptyReport) {
    ReplaySession session;
    session.setRecording("{\"t\":0,\"touches\":[[1,0.5,0.5,4]]}\n");
    ReplaySession::setLooping(true);
    session.start();
    EXPECT_THAT(descriptions(firstOf(session, 3)),
                ElementsAre("1@0.5,0.5 state 4", "nothing", "1@0.5,0.5 state 4"));
}

TEST(ReplayDriver, NeverReportsDecreasingTimes) {
    ReplaySession session;
    session.setRecording("{\"t\":5,\"touches\":[]}\n"
                         "{\"t\":1,\"touches\":[]}\n"
                         "{\"t\":1.01,\"touches\":[]}\n"
                         "{\"t\":-1e300,\"touches\":[]}\n");
    session.start();
    const auto deliveries = session.waitFor(4);
    const double start = deliveries[0].timestamp;
    EXPECT_EQ(deliveries[1].timestamp, start);
    EXPECT_NEAR(deliveries[2].timestamp, start + 0.01, 1e-9);
    EXPECT_EQ(deliveries[3].timestamp, deliveries[2].timestamp);
}

TEST(ReplayDriver, AdvancesTimeForSkippedRecords) {
    ReplaySession session;
    session.setRecording("{\"t\":0,\"frontmost\":null}\n"
                         "{\"t\":0.01}\n"
                         "{\"t\":0.02,\"touches\":[]}\n");
    const double before = now();
    session.start();
    const auto deliveries = session.waitFor(1);
    EXPECT_THAT(descriptions(deliveries), ElementsAre("nothing"));
    EXPECT_GE(deliveries[0].timestamp, before + 0.02);
}

TEST(ReplayDriver, PlaysAnEvemuRecording) {
    ReplaySession session;
    session.setRecording("N: pad\nA: 2f 0 1 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n"
                         "E: 1338280591.5 3 39 7\nE: 1338280591.5 0 0 0\n");
    session.start();
    EXPECT_THAT(descriptions(session.waitFor(2)), ElementsAre("1@0,1 state 3", "nothing"));
}

TEST(ReplayDriver, StopsDuringALongWait) {
    ReplaySession session;
    session.setRecording("{\"t\":0,\"touches\":[]}\n{\"t\":1e300,\"touches\":[[1,0,0,4]]}\n");
    session.start();
    session.waitFor(1);
    session.manager().stop(); // shows that stop() returns
    EXPECT_FALSE(session.manager().isRunning());
    EXPECT_EQ(session.deliveryCount(), 1U);
}

// Sends a report every 0.1 ms, so that some stops coincide with a report.
TEST(ReplayDriver, CallsNoCallbackAfterStopping) {
    std::string dense;
    for (int index = 0; index < 2'000; ++index) {
        dense += "{\"t\":" + std::to_string(index * 0.0001) + ",\"touches\":[[1,0,0,4]]}\n";
    }
    std::atomic<bool> stopped = false;
    std::atomic<int> late = 0;
    ReplaySession session;
    session.onDelivery = [&](const Delivery&) {
        late += stopped ? 1 : 0;
    };
    session.setRecording(dense);
    ReplaySession::setLooping(true);
    for (std::size_t round = 0; round < 20; ++round) {
        stopped = false;
        const std::size_t count = session.deliveryCount();
        session.start();
        session.waitFor(count + 5 * (round + 1));
        session.manager().stop();
        stopped = true;
    }
    EXPECT_EQ(late, 0);
}

TEST(ReplayDriver, CanBeStoppedFromItsCallback) {
    const std::size_t before = threadCount();
    ReplaySession session;
    session.setRecording(tap);
    session.onDelivery = [&](const Delivery&) {
        session.stopDevice();
    };
    session.start();
    session.waitFor(1);
    waitForThreads(before);
    EXPECT_THAT(descriptions(session.waitFor(1)), ElementsAre(tapDeliveries[0]));
}

TEST(ReplayDriver, RestartsFromTheBeginningAfterAStop) {
    const std::size_t before = threadCount();
    ReplaySession session;
    session.setRecording(tap);
    bool stop = true; // the driver's threads read it, one after another
    session.onDelivery = [&](const Delivery&) {
        if (std::exchange(stop, false)) {
            session.stopDevice();
        }
    };
    session.start();
    session.waitFor(1);
    waitForThreads(before);
    session.startDevice();
    session.waitFor(4);
    waitForThreads(before);
    std::vector<std::string> expected = tapDeliveries;
    expected.insert(expected.begin(), tapDeliveries[0]);
    EXPECT_EQ(descriptions(session.waitFor(4)), expected);
}

TEST(ReplayDriver, StartingTwiceDoesNotPlayTwice) {
    const std::size_t before = threadCount();
    ReplaySession session;
    session.setRecording(tap);
    session.start();
    session.waitFor(1);
    session.startDevice();
    session.waitFor(3);
    session.startDevice();
    waitForThreads(before);
    EXPECT_EQ(session.deliveryCount(), 3U);
}

TEST(ReplayDriver, ReturnsNoDeviceAndLogsTheReasonForAnUnusableRecording) {
    struct Row {
        const char* why;
        std::string path;
        std::string message;
    };
    const TemporaryFolder folder;
    const std::string bad = folder.write("bad", "{\"t\":1}\n{\"t\":\"x\"}\n").string();
    const std::string stranger = folder.write("stranger", "hello\n").string();
    const Row rows[] = {
        {"not named", "", "GLIDEMAP_RECORDING does not name a recording"},
        {"not there", "/no/such/file",
         "/no/such/file: cannot be opened: No such file or directory"},
        {"malformed", bad, bad + ":2: \"t\" is not a number"},
        {"no recording", stranger,
         stranger + ":1: not a recording by Glidemap, evemu or libinput record"},
    };
    for (const Row& row : rows) {
        ReplaySession session;
        ReplaySession::setRecordingPath(row.path);
        testing::internal::CaptureStderr();
        session.start();
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Glidemap's replay driver: " + row.message + "\n")
            << row.why;
        EXPECT_FALSE(session.manager().isRunning()) << row.why;
        EXPECT_EQ(session.manager().loadError(), noDevice) << row.why;
    }
}

TEST(ReplayDriver, EmptyRecordingYieldsADeviceThatReportsNothing) {
    ReplaySession session;
    session.setRecording("");
    ReplaySession::setLooping(true);
    ASSERT_TRUE(session.start().isRunning());
    session.manager().stop();
    EXPECT_EQ(session.deliveryCount(), 0U);
}

// Loads a copy of the driver, which the loader treats as another library. Enabling pushed reports
// therefore does not affect other tests.
class PushedReports : public testing::Test {
protected:
    PushedReports() {
        const auto copy = folder.write("driver.so", "");
        std::filesystem::copy_file(GLIDEMAP_REPLAY_DRIVER, copy,
                                   std::filesystem::copy_options::overwrite_existing);
        session.emplace(copy);
        session->start(); // fails without a recording, but loads the library
        const auto& manager = session->manager();
        push = reinterpret_cast<driver::Push>(manager.optionalSymbol(driver::pushSymbol));
        reinterpret_cast<driver::EnablePushing>(
            manager.optionalSymbol(driver::enablePushingSymbol))();
    }

    TemporaryFolder folder;
    std::optional<ReplaySession> session;
    driver::Push push = nullptr;
};

TEST_F(PushedReports, ArriveUnchangedOnTheCallingThread) {
    ASSERT_TRUE(session->start().isRunning());
    MTTouch touch{};
    touch.identifier = 7;
    touch.state = 4;
    touch.timestamp = 1;
    touch.normalized.pos = {0.25F, 0.5F};
    push(&touch, 1, 2.5);
    push(nullptr, 0, 2);
    const auto deliveries = session->waitFor(2);
    EXPECT_THAT(descriptions(deliveries), ElementsAre("7@0.25,0.5 state 4", "nothing"));
    EXPECT_THAT(deliveries, Each(Field(&Delivery::thread, std::this_thread::get_id())));
    EXPECT_EQ(deliveries[0].timestamp, 2.5);
    EXPECT_EQ(deliveries[1].timestamp, 2);
    EXPECT_THAT(deliveries[0].contactTimes, ElementsAre(1));
}

TEST_F(PushedReports, AreDroppedWhileNoDeviceIsStarted) {
    push(nullptr, 0, 1);
    EXPECT_EQ(session->deliveryCount(), 0U);
    session->start();
    push(nullptr, 0, 1);
    EXPECT_EQ(session->deliveryCount(), 1U);
    session->manager().stop();
    push(nullptr, 0, 1);
    EXPECT_EQ(session->deliveryCount(), 1U);
}

TEST_F(PushedReports, CallbackMayStopTheDevice) {
    session->onDelivery = [&](const Delivery&) {
        session->manager().stop();
    };
    session->start();
    push(nullptr, 0, 1);
    push(nullptr, 0, 2);
    EXPECT_EQ(session->deliveryCount(), 1U);
}

} // namespace
} // namespace glidemap::test
