#include "input/multitouch_device_manager.h"
#include "kit/records.h"
#include "test_driver_library.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>

namespace glidemap {
namespace {

constexpr const char* noDevice = "未找到多点触摸设备";
constexpr const char* symbolsMissing = "MultitouchSupport 符号解析失败";

struct Forwarded {
    driver::Device device;
    std::vector<std::int32_t> identifiers;
    double timestamp;

    friend bool operator==(const Forwarded&, const Forwarded&) = default;
};

// Records everything that reaches the sink during the test.
class MultitouchDeviceManagerTest : public testing::Test {
protected:
    MultitouchDeviceManagerTest() {
        MultitouchDeviceManager::setFrameSink(
            [this](driver::Device device, const std::vector<MTTouch>& records, double timestamp) {
                Forwarded report{device, {}, timestamp};
                for (const MTTouch& record : records) {
                    report.identifiers.push_back(record.identifier);
                }
                forwarded.push_back(report);
            });
    }
    ~MultitouchDeviceManagerTest() override { MultitouchDeviceManager::setFrameSink({}); }

    std::vector<Forwarded> forwarded;
};

std::int32_t callBack(const MTTouch* records, std::int32_t count, double timestamp = 1) {
    return MultitouchDeviceManager::contactCallback(nullptr, records, count, timestamp, 5);
}

TEST_F(MultitouchDeviceManagerTest, LoadsADriverWithoutStartingDevices) {
    const MultitouchDeviceManager manager(testDriver("complete"));
    const TestDriverLibrary driver(manager);
    EXPECT_EQ(manager.loadError(), std::nullopt);
    EXPECT_FALSE(manager.isRunning());
    EXPECT_EQ(driver.calls(), "");
}

TEST_F(MultitouchDeviceManagerTest, RegistersAndStartsEveryDeviceInOrder) {
    MultitouchDeviceManager manager(testDriver("complete"));
    const TestDriverLibrary driver(manager);
    manager.start();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0; "
                              "register c; start c 0");
    EXPECT_TRUE(manager.isRunning());
    EXPECT_EQ(manager.loadError(), std::nullopt);
    manager.stop();
}

TEST_F(MultitouchDeviceManagerTest, StopsEveryDeviceBeforeUnregisteringItsCallback) {
    MultitouchDeviceManager manager(testDriver("complete"));
    const TestDriverLibrary driver(manager);
    manager.start();
    manager.stop();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0; "
                              "register c; start c 0; stop a; unregister a; stop b; unregister b; "
                              "stop c; unregister c");
}

TEST_F(MultitouchDeviceManagerTest, StartingAndStoppingAreIdempotent) {
    MultitouchDeviceManager manager(testDriver("list-with-nulls"));
    const TestDriverLibrary driver(manager);
    manager.stop();
    EXPECT_EQ(driver.calls(), "");
    manager.start();
    manager.start();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0");
    manager.stop();
    manager.stop();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0; "
                              "stop a; unregister a; stop b; unregister b");
}

TEST_F(MultitouchDeviceManagerTest, CanBeRestartedAfterAStop) {
    MultitouchDeviceManager manager(testDriver("list-with-nulls"));
    const TestDriverLibrary driver(manager);
    manager.start();
    manager.stop();
    manager.start();
    EXPECT_TRUE(manager.isRunning());
    manager.stop();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0; "
                              "stop a; unregister a; stop b; unregister b; "
                              "create list; register a; start a 0; register b; start b 0; "
                              "stop a; unregister a; stop b; unregister b");
}

TEST_F(MultitouchDeviceManagerTest, MissingDriverIsReportedWithTheLoaderError) {
    MultitouchDeviceManager manager({"/no/such/driver.so", {}});
    const std::string prefix = "无法加载 MultitouchSupport.framework: ";
    ASSERT_TRUE(manager.loadError().has_value());
    EXPECT_TRUE(manager.loadError()->starts_with(prefix)) << *manager.loadError();
    // Some loaders print their own function name before the path.
    EXPECT_NE(manager.loadError()->find("/no/such/driver.so"), std::string::npos)
        << *manager.loadError();
    EXPECT_GT(manager.loadError()->size(), prefix.size() + 20);
    const auto before = manager.loadError();
    manager.start();
    EXPECT_FALSE(manager.isRunning());
    EXPECT_EQ(manager.loadError(), before);
    manager.stop();
    EXPECT_EQ(manager.optionalSymbol("MTDeviceStop"), nullptr);
}

TEST_F(MultitouchDeviceManagerTest, MissingRequiredSymbolIsReportedAndNothingStarts) {
    for (const char* name : {"without-create", "without-register", "without-start"}) {
        MultitouchDeviceManager manager(testDriver(name));
        const TestDriverLibrary driver(manager);
        EXPECT_EQ(manager.loadError(), symbolsMissing) << name;
        manager.start();
        manager.stop();
        EXPECT_FALSE(manager.isRunning()) << name;
        EXPECT_EQ(manager.loadError(), symbolsMissing) << name;
        EXPECT_EQ(driver.calls(), "") << name;
    }
}

TEST_F(MultitouchDeviceManagerTest, MissingListFunctionsAreReportedAsMissingSymbols) {
    MultitouchDeviceManager manager(testDriver("without-list-access"));
    const TestDriverLibrary driver(manager);
    EXPECT_EQ(manager.loadError(), symbolsMissing);
    manager.start();
    EXPECT_EQ(driver.calls(), "");
}

TEST_F(MultitouchDeviceManagerTest, StopFunctionsAreOptional) {
    struct Row {
        const char* name;
        const char* stopping;
    };
    const Row rows[] = {
        {"without-stop", "; unregister a; unregister b; unregister c"},
        {"without-unregister", "; stop a; stop b; stop c"},
        {"without-stop-side", ""},
    };
    for (const auto& [name, stopping] : rows) {
        MultitouchDeviceManager manager(testDriver(name));
        const TestDriverLibrary driver(manager);
        EXPECT_EQ(manager.loadError(), std::nullopt) << name;
        manager.start();
        const std::string started = driver.calls();
        EXPECT_TRUE(manager.isRunning()) << name;
        manager.stop();
        EXPECT_FALSE(manager.isRunning()) << name;
        EXPECT_EQ(driver.calls(), started + stopping) << name;
    }
}

TEST_F(MultitouchDeviceManagerTest, ReportsThatNoTouchpadWasFoundAndDoesNotRetry) {
    for (const char* name : {"null-list", "empty-list", "list-with-only-nulls"}) {
        MultitouchDeviceManager manager(testDriver(name));
        const TestDriverLibrary driver(manager);
        EXPECT_EQ(manager.loadError(), std::nullopt) << name;
        manager.start();
        EXPECT_EQ(manager.loadError(), noDevice) << name;
        EXPECT_FALSE(manager.isRunning()) << name;
        manager.start();
        manager.stop();
        EXPECT_EQ(driver.calls(), "create list") << name;
    }
}

TEST_F(MultitouchDeviceManagerTest, LookForDevicesStartsNewDevices) {
    MultitouchDeviceManager manager(testDriver("growing-list"));
    const TestDriverLibrary driver(manager);
    driver.attach(1);
    manager.start();
    driver.attach(3);
    manager.lookForDevices();
    manager.lookForDevices();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; create list; register b; "
                              "start b 0; register c; start c 0; create list");
    EXPECT_EQ(manager.presentDevices().size(), 3U);
    driver.attach(1); // detaches b and c; they stay registered, because they may be attached again
    manager.lookForDevices();
    manager.stop();
    EXPECT_TRUE(driver.calls().ends_with("create list; create list; stop a; unregister a; stop b; "
                                         "unregister b; stop c; unregister c"))
        << driver.calls();
    driver.attach(0);
}

TEST_F(MultitouchDeviceManagerTest, FirstDeviceClearsTheError) {
    MultitouchDeviceManager manager(testDriver("growing-list"));
    const TestDriverLibrary driver(manager);
    manager.start();
    EXPECT_EQ(manager.loadError(), noDevice);
    manager.lookForDevices();
    EXPECT_EQ(manager.loadError(), noDevice);
    EXPECT_FALSE(manager.isRunning());
    driver.attach(1);
    manager.lookForDevices();
    EXPECT_EQ(manager.loadError(), std::nullopt);
    EXPECT_TRUE(manager.isRunning());
    manager.stop();
    EXPECT_EQ(driver.calls(), "create list; create list; create list; register a; start a 0; "
                              "stop a; unregister a");
    driver.attach(0);
}

TEST_F(MultitouchDeviceManagerTest, DoesNotLookForDevicesAfterAStopWithoutDevices) {
    MultitouchDeviceManager manager(testDriver("growing-list"));
    const TestDriverLibrary driver(manager);
    manager.lookForDevices();
    EXPECT_EQ(driver.calls(), "") << "not started yet";
    manager.start();
    manager.stop();
    driver.attach(1);
    manager.lookForDevices();
    EXPECT_EQ(driver.calls(), "create list");
    manager.start(); // starts nothing after an error, but allows lookForDevices() again
    manager.lookForDevices();
    EXPECT_TRUE(manager.isRunning());
    manager.stop();
    driver.attach(0);
}

TEST_F(MultitouchDeviceManagerTest, DoesNotLookForDevicesIfTheDriverIsUnusable) {
    for (const char* name : {"without-start", "without-list-access"}) {
        MultitouchDeviceManager manager(testDriver(name));
        const TestDriverLibrary driver(manager);
        manager.start();
        manager.lookForDevices();
        EXPECT_EQ(driver.calls(), "") << name;
        EXPECT_EQ(manager.loadError(), symbolsMissing) << name;
    }
    MultitouchDeviceManager missing({"/no/such/driver.so", {}});
    missing.start();
    missing.lookForDevices();
    EXPECT_FALSE(missing.isRunning());
}

TEST_F(MultitouchDeviceManagerTest, NullEntriesInTheDeviceListAreSkipped) {
    MultitouchDeviceManager manager(testDriver("list-with-nulls"));
    const TestDriverLibrary driver(manager);
    manager.start();
    EXPECT_EQ(driver.calls(), "create list; register a; start a 0; register b; start b 0");
    manager.stop();
}

TEST_F(MultitouchDeviceManagerTest, DriverReportsReachTheSink) {
    MultitouchDeviceManager manager(testDriver("complete"));
    const TestDriverLibrary driver(manager);
    manager.start();
    const MTTouch records[] = {test::record(4, 0.1, 0.1), test::record(2, 0.2, 0.2)};
    EXPECT_EQ(driver.report(records, 2, 12.5), 0);
    manager.stop();
    ASSERT_EQ(forwarded.size(), 1U);
    EXPECT_NE(forwarded[0].device, nullptr);
    EXPECT_EQ(forwarded[0].identifiers, (std::vector{4, 2}));
    EXPECT_EQ(forwarded[0].timestamp, 12.5);
}

TEST_F(MultitouchDeviceManagerTest, RecordsAreCopiedCompletely) {
    std::vector<MTTouch> kept;
    MultitouchDeviceManager::setFrameSink(
        [&](driver::Device, std::vector<MTTouch> records, double) { kept = std::move(records); });
    std::vector<MTTouch> buffer = {test::record(1, 0.25, 0.5), test::record(2, 0.5, 0.75)};
    callBack(buffer.data(), 2);
    buffer.assign(2, MTTouch{});
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].identifier, 2);
    EXPECT_EQ(kept[1].normalized.pos.y, 0.75F);
    EXPECT_EQ(kept[1].field15, -6);
}

TEST_F(MultitouchDeviceManagerTest, ReportWithoutRecordsIsForwardedAsEmpty) {
    const MTTouch record = test::record(1, 0, 0);
    EXPECT_EQ(callBack(nullptr, 0, 1), 0);
    EXPECT_EQ(callBack(nullptr, 3, 2), 0);
    EXPECT_EQ(callBack(&record, 0, 3), 0);
    EXPECT_EQ(callBack(&record, -1, 4), 0);
    EXPECT_EQ(callBack(&record, std::numeric_limits<std::int32_t>::min(), 5), 0);
    EXPECT_EQ(callBack(nullptr, std::numeric_limits<std::int32_t>::max(), 6), 0);
    EXPECT_EQ(forwarded, (std::vector<Forwarded>{{nullptr, {}, 1},
                                                 {nullptr, {}, 2},
                                                 {nullptr, {}, 3},
                                                 {nullptr, {}, 4},
                                                 {nullptr, {}, 5},
                                                 {nullptr, {}, 6}}));
}

TEST_F(MultitouchDeviceManagerTest, ReportWithMoreThan65536RecordsIsDropped) {
    const std::vector<MTTouch> most(65'536, test::record(1, 0, 0));
    callBack(most.data(), 65'536);
    ASSERT_EQ(forwarded.size(), 1U);
    EXPECT_EQ(forwarded[0].identifiers.size(), 65'536U);
    const MTTouch record = test::record(1, 0, 0);
    EXPECT_EQ(callBack(&record, 65'537), 0);
    EXPECT_EQ(callBack(&record, std::numeric_limits<std::int32_t>::max()), 0);
    EXPECT_EQ(forwarded.size(), 1U);
}

TEST_F(MultitouchDeviceManagerTest, ReportsAreDroppedWithoutASink) {
    MultitouchDeviceManager::setFrameSink({});
    const MTTouch record = test::record(1, 0, 0);
    EXPECT_EQ(callBack(&record, 1), 0);
    EXPECT_EQ(callBack(nullptr, 0), 0);
    EXPECT_EQ(forwarded, std::vector<Forwarded>());
}

TEST_F(MultitouchDeviceManagerTest, SinkMayBeReplacedDuringReports) {
    std::atomic<bool> done = false;
    std::atomic<int> reports = 0;
    const auto count = [&](driver::Device, const std::vector<MTTouch>&, double) {
        ++reports;
    };
    MultitouchDeviceManager::setFrameSink(count);
    std::thread driver([&] {
        const MTTouch record = test::record(1, 0, 0);
        while (!done) {
            callBack(&record, 1);
        }
    });
    while (reports < 500) {
        MultitouchDeviceManager::setFrameSink({});
        MultitouchDeviceManager::setFrameSink(count);
    }
    done = true;
    driver.join();
}

TEST_F(MultitouchDeviceManagerTest, FindsOptionalSymbols) {
    const MultitouchDeviceManager manager(testDriver("complete"));
    EXPECT_NE(manager.optionalSymbol("TestDriverCalls"), nullptr);
    EXPECT_EQ(manager.optionalSymbol(driver::setButtonCallbackSymbol), nullptr);
}

TEST_F(MultitouchDeviceManagerTest, SharedInstanceIsCreatedOnceFromItsConfiguration) {
    MultitouchDeviceManager::configureShared(testDriver("null-list"));
    auto& shared = MultitouchDeviceManager::shared();
    EXPECT_EQ(&shared, &MultitouchDeviceManager::shared());
    shared.start();
    EXPECT_EQ(shared.loadError(), noDevice);
}

} // namespace
} // namespace glidemap
