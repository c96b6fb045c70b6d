// Reads every evemu recording in a collection from real touchpads. Compares the result with a much
// simpler evaluation of the text, which counts tracking IDs, frames, button changes and fingers.
#include "read_records.h"
#include "recording/recording_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {
namespace {

using std::filesystem::path;

std::vector<path> collectedRecordings() {
    std::vector<path> result;
    const path folder = GLIDEMAP_RECORDINGS_DIR;
    if (std::filesystem::is_directory(folder)) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".events") {
                result.push_back(entry.path());
            }
        }
    }
    std::ranges::sort(result);
    return result;
}

// Recordings of devices without slots.
const std::set<std::string> withoutSlots = {
    "AlpsPS2-ALPS-DualPoint-TouchPad-non-MT.doubletap.events",
    "AlpsPS2-ALPS-DualPoint-TouchPad-non-MT.tap.events",
    "SynPS2 Synaptics TouchPad-fdo23890.events",
    "bcm5974.three-finger-click.events",
};

// The numbers that are counted in the recording's text. Slots serve only to count simultaneous
// fingers.
struct Oracle {
    int landings = 0;      // tracking ids in the text
    int frames = 0;        // SYN_REPORT events
    int buttonChanges = 0; // of the left, right and middle button
    double firstTime = -1;
    double lastTime = 0;
    std::size_t maxFingers = 0; // maximum of the occupied slots and the touchpad's finger count
};

Oracle countEvents(const path& file) {
    Oracle oracle;
    std::set<int> downSlots;
    std::size_t counted = 0;
    int slot = 0;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        double time = 0;
        unsigned type = 0;
        unsigned code = 0;
        int value = 0;
        if (std::sscanf(line.c_str(), "E: %lf %x %x %d", &time, &type, &code, &value) != 4) {
            continue;
        }
        oracle.firstTime = oracle.firstTime < 0 ? time : oracle.firstTime;
        oracle.lastTime = time;
        if (type == 3 && code == 0x2f) {
            slot = value;
        } else if (type == 3 && code == 0x39) {
            oracle.landings += value >= 0 ? 1 : 0;
            value >= 0 ? (void)downSlots.insert(slot) : (void)downSlots.erase(slot);
        } else if (type == 1 && code >= 0x110 && code <= 0x112) {
            ++oracle.buttonChanges;
        } else if (type == 1 && value == 1 && code >= 0x14d && code <= 0x14e) {
            counted = code - 0x14b;
        } else if (type == 0) {
            ++oracle.frames;
            oracle.maxFingers = std::max({oracle.maxFingers, downSlots.size(), counted});
            counted = 0;
        }
    }
    return oracle;
}

struct Seen {
    std::set<std::int32_t> identifiers;
    int reports = 0;
    int buttonChanges = 0;
    std::size_t maxFingers = 0;
    double smallest = 1; // the minimum over all coordinates
    double largest = 0;
    bool landsBeforeItTouches = true;
    bool timesRise = true;
    double firstTime = 0;
    double lastTime = 0;
};

void see(const Report& report, Seen& seen, std::set<std::int32_t>& present) {
    ++seen.reports;
    std::size_t fingers = 0;
    std::set<std::int32_t> now;
    for (const MTTouch& touch : report.touches) {
        const auto [x, y] = touch.normalized.pos;
        seen.smallest = std::min<double>({seen.smallest, x, y});
        seen.largest = std::max<double>({seen.largest, x, y});
        seen.identifiers.insert(touch.identifier);
        if (touch.state != static_cast<std::int32_t>(MTTouchState::outOfRange)) {
            ++fingers;
            now.insert(touch.identifier);
        }
        const bool known = present.contains(touch.identifier);
        const bool isNew = touch.state == static_cast<std::int32_t>(MTTouchState::makeTouch);
        const bool touching = touch.state == static_cast<std::int32_t>(MTTouchState::touching);
        seen.landsBeforeItTouches = seen.landsBeforeItTouches && (known || !touching) &&
                                    !(isNew && !now.contains(touch.identifier));
    }
    present = now;
    seen.maxFingers = std::max(seen.maxFingers, fingers);
}

Seen readAll(RecordingReader& reader) {
    Seen seen;
    std::set<std::int32_t> present;
    Record record;
    double last = 0;
    while (reader.next(record)) {
        seen.firstTime = seen.reports + seen.buttonChanges == 0 ? timeOf(record) : seen.firstTime;
        seen.lastTime = timeOf(record);
        seen.timesRise = seen.timesRise && timeOf(record) >= last;
        last = timeOf(record);
        if (const auto* report = std::get_if<Report>(&record)) {
            see(*report, seen, present);
        } else {
            ++seen.buttonChanges;
        }
    }
    return seen;
}

class CollectedRecording : public testing::TestWithParam<path> {};

TEST_P(CollectedRecording, ReaderMatchesAnIndependentEventCount) {
    const path& file = GetParam();
    const auto reader = openRecordingFile(file, file.filename().string());
    const Seen seen = readAll(*reader);
    if (withoutSlots.contains(file.filename().string())) {
        ASSERT_TRUE(reader->error());
        EXPECT_EQ(text(*reader->error()), file.filename().string() +
                                              ": the device does not report its contacts in slots "
                                              "(it has no ABS_MT_SLOT)");
        EXPECT_EQ(seen.reports, 0);
        return;
    }
    const Oracle oracle = countEvents(file);
    ASSERT_FALSE(reader->error()) << text(*reader->error());
    EXPECT_NE(reader->device(), "");
    EXPECT_GT(oracle.landings, 0);
    EXPECT_GT(seen.reports, 0);
    EXPECT_LE(seen.reports, oracle.frames);
    EXPECT_EQ(seen.buttonChanges, oracle.buttonChanges);
    EXPECT_EQ(seen.maxFingers, oracle.maxFingers);
    EXPECT_GE(static_cast<int>(seen.identifiers.size()), oracle.landings);
    EXPECT_GE(seen.smallest, 0);
    EXPECT_LE(seen.largest, 1);
    EXPECT_TRUE(seen.landsBeforeItTouches);
    EXPECT_TRUE(seen.timesRise);
    EXPECT_GE(seen.firstTime, oracle.firstTime);
    EXPECT_LE(seen.lastTime, oracle.lastTime);
}

std::string testName(const testing::TestParamInfo<path>& info) {
    std::string name = info.param.stem().string();
    std::ranges::replace_if(
        name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Evemu, CollectedRecording, testing::ValuesIn(collectedRecordings()),
                         testName);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CollectedRecording);

TEST(CollectedRecordings, ArePresent) {
    if (collectedRecordings().empty()) {
        GTEST_SKIP() << "no recordings in " GLIDEMAP_RECORDINGS_DIR
                        " (set GLIDEMAP_RECORDINGS_DIR to a folder of evemu recordings)";
    }
}

} // namespace
} // namespace glidemap::test
