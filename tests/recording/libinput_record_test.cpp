#include "read_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string head = "# libinput record\n"
                         "version: 1\n"
                         "ndevices: 1\n"
                         "libinput:\n"
                         "  version: \"1.22.1\"\n"
                         "devices:\n";

std::string device(const std::string& name, const std::string& udevProperty,
                   const std::string& events) {
    return "- node: /dev/input/event0\n"
           "  evdev:\n"
           "    # Name: " +
           name +
           "\n"
           "    name: \"" +
           name +
           "\"\n"
           "    id: [24, 18244, 1, 256]\n"
           "    codes:\n"
           "      3: [0, 1, 47, 53, 54, 57, 58] # EV_ABS\n"
           "    absinfo:\n"
           "      47: [0, 4, 0, 0, 0]\n"
           "      53: [0, 100, 0, 0, 30]\n"
           "      54: [0, 100, 0, 0, 30]\n"
           "    properties: [0, 2]\n"
           "  udev:\n"
           "    properties:\n"
           "    - ID_INPUT=1\n" +
           (udevProperty.empty() ? "" : "    - " + udevProperty + "\n") +
           "  quirks:\n"
           "  events:\n" +
           events;
}

const std::string touchpadProperty = "ID_INPUT_TOUCHPAD=1";

// Returns the events of one contact that lands at this position.
std::string landing(int x) {
    return "  # Current time is 03:59:25\n"
           "  - evdev:\n"
           "    - [  0, 500000,   3,  57,     100] # EV_ABS / ABS_MT_TRACKING_ID      100\n"
           "    - [  0, 500000,   3,  53,     " +
           std::to_string(x) +
           "] # EV_ABS / ABS_MT_POSITION_X       900 (+900)\n"
           "    - [  0, 500000,   0,   0,       0] # ------------ SYN_REPORT (0) ----------\n";
}

std::string lines(const std::string& line, int count) {
    std::string text;
    for (int index = 0; index < count; ++index) {
        text += line + "\n";
    }
    return text;
}

TEST(LibinputRecordReader, ReadsReportsAsTheTouchpadSentThem) {
    const ReadRecording recording = readRecords(
        head + device("A pad", touchpadProperty,
                      landing(25) + "  - libinput:\n"
                                    "    - {time: 0.5, type: POINTER_MOTION, delta: [1, 2]}\n"
                                    "  - evdev:\n"
                                    "    - [ 12, 508000,   3,  57,      -1]\n"
                                    "    - [ 12, 508000,   1, 272,       1]\n"
                                    "    - [ 12, 508000,   0,   0,       0]\n"));
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.device, "A pad");
    EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,1 state 3", "12.508: 1@0.25,1 state 7",
                                               "12.508: button 0 down"));
}

// The evemu file was replayed into the kernel while `libinput record` wrote the YAML file.
TEST(LibinputRecordReader, ReadsTheSameReportsAsTheEvemuReader) {
    const std::filesystem::path data = GLIDEMAP_TEST_DATA;
    const auto evemu = readRecordFile(data / "two_fingers.swipe_with_click.events");
    const auto libinput = readRecordFile(data / "two_fingers.swipe_with_click.yml");
    EXPECT_EQ(evemu.error, "");
    EXPECT_EQ(libinput.error, "");
    EXPECT_EQ(evemu.device, "Glidemap Sample Touchpad");
    EXPECT_EQ(libinput.device, "Glidemap Sample Touchpad");
    const auto withoutTimes = [](std::vector<std::string> records) {
        for (std::string& record : records) {
            record.erase(0, record.find(':'));
        }
        return records;
    };
    EXPECT_EQ(withoutTimes(evemu.records), withoutTimes(libinput.records));
    EXPECT_THAT(withoutTimes(libinput.records),
                ElementsAre(": 1@0.3,0.55 state 3, 2@0.4,0.53 state 3",
                            ": 1@0.35,0.5495 state 4, 2@0.45,0.5295 state 4",
                            ": 1@0.4,0.549 state 4, 2@0.5,0.529 state 4",
                            ": 1@0.45,0.5485 state 4, 2@0.55,0.5285 state 4", ": button 0 down",
                            ": 1@0.5,0.548 state 4, 2@0.6,0.528 state 4",
                            ": 1@0.55,0.5475 state 4, 2@0.65,0.5275 state 4", ": button 0 up",
                            ": 1@0.6,0.547 state 4, 2@0.7,0.527 state 4",
                            ": 1@0.6,0.547 state 7, 2@0.7,0.527 state 7"));
}

TEST(LibinputRecordReader, UsesTheFirstTouchpadAmongSeveralDevices) {
    const ReadRecording recording =
        readRecords(head + device("mouse", "ID_INPUT_MOUSE=1", landing(10)) +
                    device("first", touchpadProperty, landing(25)) +
                    device("second", touchpadProperty, landing(50)));
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.device, "first");
    EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,1 state 3"));
}

std::string withoutUdev(const std::string& properties) {
    return "version: 1\n"
           "devices:\n"
           "- events:\n"
           "  - evdev:\n"
           "    - [0, 500000, 3, 57, 1]\n"
           "    - [0, 500000, 0, 0, 0]\n"
           "  evdev:\n"
           "    absinfo: {47: [0, 4, 0, 0, 0], 53: [0, 9, 0, 0, 0], 54: [0, 9, 0, 0, 0]}\n"
           "    properties: " +
           properties + "\n";
}

TEST(LibinputRecordReader, DistinguishesTouchpadFromTouchscreenWithoutUdevProperties) {
    EXPECT_THAT(readRecords(withoutUdev("[0]")).records, ElementsAre("0.5: 1@0,1 state 3"));
    EXPECT_EQ(readRecords(withoutUdev("[1]")).error, "file: no touchpad among its devices");
}

TEST(LibinputRecordReader, RejectsARecordingWithoutATouchpad) {
    const std::string message = "file: no touchpad among its devices";
    EXPECT_EQ(readRecords(head + device("mouse", "ID_INPUT_MOUSE=1", landing(10))).error, message);
    EXPECT_EQ(readRecords(head).error, message);
    EXPECT_EQ(readRecords("version: 1\ndevices: none\n").error, message);
    EXPECT_EQ(readRecords("version: 1\ndevices: []\n").error, message);
}

TEST(LibinputRecordReader, RejectsATouchpadWithoutSlots) {
    EXPECT_EQ(
        readRecords("version: 1\ndevices:\n- udev:\n    properties: [ID_INPUT_TOUCHPAD=1]\n").error,
        "file: the device does not report its contacts in slots (it has no ABS_MT_SLOT)");
}

// A recording of an idle touchpad consists mostly of comments with the time of day.
TEST(LibinputRecordReader, AcceptsAnyNumberOfComments) {
    const ReadRecording recording = readRecords(
        head + device("pad", touchpadProperty,
                      landing(25) + lines("  # Current time is 03:59:25", 10'000) + landing(50)));
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.records.size(), 2U);
}

// Together, the events are far longer than the limit for a single value.
TEST(LibinputRecordReader, AcceptsAnyNumberOfEvents) {
    std::string events = "  - evdev:\n";
    for (int index = 0; index < 10'000; ++index) {
        const std::string time = "    - [" + std::to_string(index) + ", 0, ";
        events += time + "3, 57, " + std::to_string(index % 2 - 1) + "]\n" + time + "0, 0, 0]\n";
    }
    const ReadRecording recording = readRecords(head + device("pad", touchpadProperty, events));
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.records.size(), 9'999U)
        << "the first event lifts a finger that is not there";
}

TEST(LibinputRecordReader, RecordingWithoutEventsYieldsNoRecords) {
    const ReadRecording recording = readRecords(head + device("pad", touchpadProperty, ""));
    EXPECT_EQ(recording.error, "");
    EXPECT_THAT(recording.records, IsEmpty());
}

struct BadRow {
    std::string line;
    const char* message;
};

TEST(LibinputRecordReader, ReportsLocationAndReasonForAMalformedEvent) {
    const char* event = "an event is not [seconds, microseconds, type, code, value]";
    const char* number = "not a valid number";
    const BadRow rows[] = {
        {"    - [0, 1, 3, 57]", event},
        {"    - []", event},
        {"    - [0, 1, 3, 57, 1, 1]", event},
        {"    - [-1, 0, 3, 57, 1]", number},
        {"    - [0, 0, 65536, 57, 1]", number},
        {"    - [0, 0, 3, 57, 2147483648]", number},
        {"    - [0, 0, 3, x, 1]", number},
        {"    - [0, 0, 3, , 1]", "not valid YAML: did not find expected node content"},
        {"    - {a: 1}", "not in the format of libinput record: expected a list"},
        {"    - [0, 0, 3, *name, 1]", "aliases are not supported"},
    };
    for (const BadRow& row : rows) {
        const std::string before = head + device("pad", touchpadProperty, landing(25));
        const auto line = std::count(before.begin(), before.end(), '\n') + 1;
        const ReadRecording recording = readRecords(before + row.line + "\n");
        EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,1 state 3")) << row.line;
        EXPECT_EQ(recording.error, "file:" + std::to_string(line) + ": " + row.message) << row.line;
    }
}

TEST(LibinputRecordReader, ReturnsTheCompleteEventsOfATruncatedRecording) {
    std::string content = head + device("pad", touchpadProperty, landing(25) + landing(50));
    content.resize(content.rfind("[  0, 500000") + 8);
    const ReadRecording recording = readRecords(content);
    EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,1 state 3"));
    EXPECT_EQ(recording.error, "file:35: not valid YAML: did not find expected ',' or ']'");
}

std::string nested(std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

TEST(LibinputRecordReader, ReportsLocationAndReasonForAMalformedHeader) {
    const BadRow rows[] = {
        {"version: 2", "file:1: version 2 of libinput's recording format is not supported, only "
                       "version 1"},
        {"version: 1\n- a", "file:2: not valid YAML: did not find expected key"},
        {"version: [1", "file:2: not valid YAML: did not find expected ',' or ']'"},
        {"version: 1\nx: \"a\\q\"", "file:2: not valid YAML: found unknown escape character"},
        {"---\n", "file:2: not in the format of libinput record: expected keys and values"},
        {"version: 1\nx: &a 1\ny: *a", "file:2: anchors are not supported"},
        {"version: 1\n? [1]\n: 2",
         "file:2: not in the format of libinput record: a key is not a scalar"},
        {"--- [1]", "file:1: not in the format of libinput record: expected keys and values"},
        {"--- 1", "file:1: not in the format of libinput record: expected keys and values"},
        {"version: 1\ndevices: {a: 1}",
         "file:2: not in the format of libinput record: expected a list"},
        {"version: 1\ndevices: [[1]]",
         "file:2: not in the format of libinput record: expected keys and values"},
        {"version: 1\ndevices:\n- evdev:\n    absinfo:\n      x: [0, 1]",
         "file:5: not a valid number"},
        {"version: 1\ndevices:\n- evdev:\n    absinfo:\n      1: [0, x]",
         "file:5: not a valid number"},
        {"version: 1\nx: " + nested(16), "file:2: values are nested more than 16 deep"},
        {"version: 1\nx: " + nested(30'000), "file:2: values are nested more than 16 deep"},
        {"version: 1\nx: \"" + std::string(70'000, 'a') + "\"",
         "file:2: 64 KiB without a complete value"},
    };
    for (const BadRow& row : rows) {
        const ReadRecording recording = readRecords(row.line);
        EXPECT_THAT(recording.records, IsEmpty()) << row.line.substr(0, 80);
        EXPECT_EQ(recording.error, row.message) << row.line.substr(0, 80);
    }
}

// The parser buffers a whole scalar, so its length needs a limit.
TEST(LibinputRecordReader, StopsReadingAnEndlessScalar) {
    const ReadRecording recording = readRecords("version: 1\nx:\n" + lines(" a", 100'000));
    EXPECT_THAT(recording.error, testing::MatchesRegex("file:2[0-9]{4}: 64 KiB without a complete "
                                                       "value"));
}

// The reader processes a list element by element, so its length needs no limit.
TEST(LibinputRecordReader, ReadsAnUnterminatedListToTheEndOfTheFile) {
    const ReadRecording recording = readRecords("version: 1\nx: [[\n" + lines("a,", 100'000));
    EXPECT_EQ(recording.error, "file:100003: not valid YAML: did not find expected node content");
}

} // namespace
} // namespace glidemap::test
