// Tests glidemap-record with touchpads in a real kernel: its file, its output and its exit.

#include "ordinary_pad.h"
#include "process.h"
#include "recording/recording_reader.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace glidemap::test {
namespace {

using testing::HasSubstr;

const std::filesystem::path folder = "/run/glidemap-record-test";

// A folder in which every user may run the program, even if the build folder is private.
const std::filesystem::path installed = "/run/glidemap-record-installed";

std::string recordProgram() {
    return installed / "bin" / "glidemap-record";
}

void copyInto(const std::filesystem::path& file, const std::filesystem::path& into) {
    std::filesystem::create_directories(into);
    std::filesystem::copy(file, into, std::filesystem::copy_options::overwrite_existing);
}

class RecordTest : public testing::Test {
protected:
    void SetUp() override {
        copyInto(GLIDEMAP_RECORD_PROGRAM, installed / "bin");
        copyInto(GLIDEMAP_EVDEV_DRIVER, installed / "lib" / "glidemap");
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    const std::filesystem::path file = folder / "touch.jsonl";
};

void twoFingerTap(VirtualPad& pad) {
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 500)}));
    pad.write(together({fingerUp(0), fingerUp(1)}));
}

// Swipes faster than a hand can. The swipe is recognised nevertheless, because a swipe has no
// minimum duration.
void threeFingerSwipeRight(VirtualPad& pad) {
    constexpr std::int32_t step = 300;
    pad.write(together(
        {fingerDown(0, 7, 500, 900), fingerDown(1, 8, 900, 800), fingerDown(2, 9, 1300, 900)}));
    for (std::int32_t x = step; x <= 5 * step; x += step) {
        pad.write(together({fingerMove(0, 500 + x, 900), fingerMove(1, 900 + x, 800),
                            fingerMove(2, 1300 + x, 900)}));
    }
    pad.write(together({fingerUp(0), fingerUp(1), fingerUp(2)}));
}

std::vector<Record> recordsIn(const std::filesystem::path& path) {
    std::vector<Record> records;
    const auto reader = openRecordingFile(path, path.string());
    for (Record record; reader->next(record);) {
        records.push_back(record);
    }
    if (reader->error()) {
        ADD_FAILURE() << text(*reader->error());
    }
    return records;
}

// Returns the number of touching fingers in each report.
std::vector<std::ptrdiff_t> fingersIn(const std::filesystem::path& path) {
    std::vector<std::ptrdiff_t> counts;
    for (const Record& record : recordsIn(path)) {
        if (const auto* report = std::get_if<Report>(&record)) {
            counts.push_back(std::ranges::count_if(report->touches, [](const MTTouch& touch) {
                return isTouchingState(touch.state);
            }));
        }
    }
    return counts;
}

TEST_F(RecordTest, RecordsContactsAndPrintsTheGestureImmediately) {
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", file.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    threeFingerSwipeRight(pad);
    EXPECT_TRUE(record.waitForOutput("threeFingerSwipeRight"));
    record.send(SIGINT);
    EXPECT_EQ(record.waitForEnd(), 0) << record.errors();

    EXPECT_THAT(fingersIn(file), testing::ElementsAre(3, 3, 3, 3, 3, 3, 0));
    std::ifstream recording(file);
    std::string head;
    std::getline(recording, head);
    EXPECT_THAT(head, HasSubstr("\"glidemap-recording\":1"));
    EXPECT_THAT(head, HasSubstr("Ordinary Touchpad"));
}

TEST_F(RecordTest, RecordsExactPositions) {
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", file.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    twoFingerTap(pad);
    EXPECT_TRUE(record.waitForOutput("twoFingerTap"));
    record.send(SIGINT);
    EXPECT_EQ(record.waitForEnd(), 0) << record.errors();

    const auto records = recordsIn(file);
    ASSERT_GE(records.size(), 1U);
    const auto* report = std::get_if<Report>(&records[0]);
    ASSERT_NE(report, nullptr);
    ASSERT_EQ(report->touches.size(), 2U);
    EXPECT_EQ(report->touches[0].normalized.pos.x, seenX(1000));
    EXPECT_EQ(report->touches[0].normalized.pos.y, seenY(500));
    EXPECT_EQ(report->touches[1].normalized.pos.x, seenX(2000));
    EXPECT_EQ(report->touches[1].state, 3);
}

TEST_F(RecordTest, ReplayOfTheRecordingRecognisesTheSameGesture) {
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", file.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    threeFingerSwipeRight(pad);
    EXPECT_TRUE(record.waitForOutput("threeFingerSwipeRight"));
    record.send(SIGINT);
    EXPECT_EQ(record.waitForEnd(), 0) << record.errors();

    Process replay({GLIDEMAP_REPLAY_PROGRAM, "--json", file.string()});
    EXPECT_EQ(replay.waitForEnd(), 0) << replay.errors();
    EXPECT_THAT(replay.output(),
                HasSubstr(R"("gesture":"threeFingerSwipeRight","delivered":true)"));
    EXPECT_EQ(std::ranges::count(replay.output(), '\n'), 1) << replay.output();
}

TEST_F(RecordTest, RecordsThePressAndReleaseOfAButton) {
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", file.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    pad.clickMarker();
    ASSERT_TRUE(record.waitUntilAsleep());
    record.send(SIGTERM);
    EXPECT_EQ(record.waitForEnd(), 0) << record.errors();

    std::vector<bool> changes;
    for (const Record& any : recordsIn(file)) {
        if (const auto* button = std::get_if<ButtonRecord>(&any)) {
            EXPECT_EQ(button->button, 2);
            changes.push_back(button->down);
        }
    }
    EXPECT_THAT(changes, testing::ElementsAre(true, false));
}

TEST_F(RecordTest, RecordsAnUnpluggedTouchpadAgainWhenReconnected) {
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", file.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    pad.write(fingerDown(0, 7, 2000, 1000));
    ASSERT_TRUE(record.waitUntilAsleep()); // the kernel drops unread events of a removed touchpad
    pad.unplug();
    pad.plugIn();
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    threeFingerSwipeRight(pad);
    EXPECT_TRUE(record.waitForOutput("threeFingerSwipeRight"));
    record.send(SIGINT);
    EXPECT_EQ(record.waitForEnd(), 0) << record.errors();

    EXPECT_THAT(fingersIn(file), testing::ElementsAre(1, 0, 3, 3, 3, 3, 3, 3, 0));
}

TEST_F(RecordTest, ReportsAMissingTouchpad) {
    Process record({recordProgram(), "-o", file.string()});
    EXPECT_EQ(record.waitForEnd(), 1);
    EXPECT_THAT(record.errors(), HasSubstr("no touchpad"));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(RecordTest, ExplainsHowToGrantAccess) {
    const VirtualPad pad(ordinaryPad());
    Process record({recordProgram()}, Process::User::nobody);
    EXPECT_EQ(record.waitForEnd(), 1);
    EXPECT_EQ(record.output(), "");
    EXPECT_THAT(record.errors(), HasSubstr("permission"));
    EXPECT_THAT(record.errors(), HasSubstr("udev"));
}

TEST_F(RecordTest, PrintsTheNameOfAFileThatCannotBeCreated) {
    const VirtualPad pad(ordinaryPad());
    const std::string path = "/run/no such folder/touch.jsonl";
    Process record({recordProgram(), "-o", path});
    EXPECT_EQ(record.waitForEnd(), 1);
    EXPECT_THAT(record.errors(), HasSubstr(path));
}

// A small disk, which a few reports fill.
class FullDisk {
public:
    explicit FullDisk(const std::filesystem::path& place) : folder(place) {
        std::filesystem::create_directories(folder);
        if (mount("none", folder.c_str(), "tmpfs", 0, "size=4k") != 0) {
            ADD_FAILURE() << "cannot mount a file system of one page";
        }
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { umount2(folder.c_str(), MNT_DETACH); }

private:
    std::filesystem::path folder;
};

TEST_F(RecordTest, FullDiskEndsTheRecordingWithAMessage) {
    const FullDisk disk(folder / "small");
    const std::filesystem::path onSmallDisk = folder / "small" / "touch.jsonl";
    VirtualPad pad(ordinaryPad());
    Process record({recordProgram(), "-o", onSmallDisk.string()});
    ASSERT_TRUE(record.waitUntilReading(pad.node()));
    pad.write(fingerDown(0, 7, 1000, 500));
    // Sends many more reports than fit on the disk, no faster than the program reads them.
    for (std::int32_t step = 1; step <= 1000 && record.waitUntilAsleep(); ++step) {
        pad.write(fingerMove(0, 1000 + step, 500));
    }
    EXPECT_EQ(record.waitForEnd(), 1);
    EXPECT_THAT(record.errors(), HasSubstr(onSmallDisk.string()));
    EXPECT_THAT(record.errors(), HasSubstr("No space left on device"));
}

} // namespace
} // namespace glidemap::test
