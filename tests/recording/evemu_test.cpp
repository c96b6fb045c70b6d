#include "kit/temporary_folder.h"
#include "read_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Describes a touchpad of 100 by 100 units with five slots.
const std::string head = "# EVEMU 1.3\n"
                         "N: A # pad\n"
                         "I: 0018 4744 0001 0100\n"
                         "P: 05 00 00 00 00 00 00 00\n"
                         "B: 00 0b 00 00 00 00 00 00 00\n"
                         "A: 2f 0 4 0 0 0\n"
                         "A: 35 0 100 0 0 10\n"
                         "A: 36 0 100 0 0 10\n"
                         "L: 00 00\n"
                         "S: 00 00\n";

const std::string down = "E: 0.500000 0003 0039 0007\n"
                         "E: 0.500000 0003 0035 0025\n"
                         "E: 0.500000 0003 0036 0025\n"
                         "E: 0.500000 0000 0000 0000\n";

const std::string up = "E: 0.508000 0003 0039 -001\n"
                       "E: 0.508000 0000 0000 0000\n";

// Reads `recording` from a file with the given name. `descriptions` are files in the same folder.
ReadRecording readBeside(const std::string& name, const std::string& recording,
                         const std::vector<std::pair<std::string, std::string>>& descriptions) {
    const TemporaryFolder folder;
    for (const auto& [descriptionName, content] : descriptions) {
        folder.write(descriptionName, content);
    }
    return readRecordFile(folder.write(name, recording));
}

TEST(EvemuReader, ReadsARecordingThatContainsTheDeviceDescription) {
    const ReadRecording recording = readRecords(head + down + up);
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.device, "A # pad");
    EXPECT_THAT(recording.records,
                ElementsAre("0.5: 1@0.25,0.75 state 3", "0.508: 1@0.25,0.75 state 7"));
}

TEST(EvemuReader, SkipsCommentsAndBlankLines) {
    const std::string content = "\n# EVEMU 1.2\r\n" + head +
                                "################################\n"
                                "#      Waiting for events      #\n"
                                "\n" +
                                "E: 0.500000 0003 0039 0007\t# EV_ABS / ABS_MT_TRACKING_ID 7\n"
                                "# half a millimetre\n"
                                "E: 0.5 3 35 25\r\n"
                                "E: 0.5 03 36 25   \n"
                                "E: 0.500000 0000 0000 0000\t# ---- SYN_REPORT (0) ----\n";
    const ReadRecording recording = readRecords(content);
    EXPECT_EQ(recording.error, "");
    EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,0.75 state 3"));
}

TEST(EvemuReader, AcceptsAMissingFirstCommentAndMissingResolutions) {
    const std::string old = "N: pad\nA: 2f 0 4 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n";
    EXPECT_THAT(readRecords(old + down).records, ElementsAre("0.5: 1@0.25,0.75 state 3"));
}

TEST(EvemuReader, KeepsTimesUnchanged) {
    const std::string content = head + "E: 1338280591.517526 0003 0039 0007\n"
                                       "E: 1338280591.517526 0000 0000 0000\n";
    EXPECT_THAT(readRecords(content).records,
                ElementsAre(HasSubstr("1338280591.517526: 1@0,1 state 3")));
}

TEST(EvemuReader, ReportsButtonsAfterContactsOfTheSameFrame) {
    const std::string content = head + "E: 1.0 0001 0110 0001\n" + down +
                                "E: 2.0 0001 0111 0001\n"
                                "E: 2.0 0001 0111 0000\n"
                                "E: 2.0 0000 0000 0000\n";
    EXPECT_THAT(readRecords(content).records,
                ElementsAre("0.5: 1@0.25,0.75 state 3", "0.5: button 0 down", "2: button 1 down",
                            "2: button 1 up"));
}

TEST(EvemuReader, DescriptionWithoutEventsIsAnEmptyRecording) {
    const ReadRecording recording = readRecords(head);
    EXPECT_EQ(recording.error, "");
    EXPECT_THAT(recording.records, IsEmpty());
}

TEST(EvemuReader, SupportsTouchpadsThatReportABoundingBox) {
    const std::string semi = "N: pad\nP: 09 00\nA: 2f 0 1 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n";
    // The second finger is only counted (14d, BTN_TOOL_DOUBLETAP) and has no slot. The reader adds
    // it only for a touchpad that reports a bounding box.
    const std::string counted = "E: 0.5 3 39 7\nE: 0.5 1 14d 1\nE: 0.5 0 0 0\n";
    EXPECT_THAT(readRecords(semi + counted).records,
                ElementsAre(testing::AllOf(HasSubstr("1@"), HasSubstr(", 2@"))));
    EXPECT_THAT(readRecords(head + counted).records,
                ElementsAre(testing::AllOf(HasSubstr("1@"), testing::Not(HasSubstr(", 2@")))));
}

TEST(EvemuReader, IgnoresSlotsOutsideTheDescribedRange) {
    const std::string content = head + "E: 0.5 3 2f 5\nE: 0.5 3 39 7\nE: 0.5 0 0 0\n";
    EXPECT_THAT(readRecords(content).records, IsEmpty());
}

TEST(EvemuReader, ReadsADescriptionFileInTheSameFolder) {
    const ReadRecording recording = readBeside("pad.swipe.events", down, {{"pad.desc", head}});
    EXPECT_EQ(recording.error, "");
    EXPECT_EQ(recording.device, "A # pad");
    EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,0.75 state 3"));
}

std::string named(const std::string& name) {
    return "N: " + name + "\nA: 2f 0 4 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n";
}

TEST(EvemuReader, UsesTheDescriptionWhoseFileNameIsTheLongestMatchingPrefix) {
    const std::vector<std::pair<std::string, std::string>> descriptions = {
        {"pad.desc", named("short")},       {"pad.new.desc", named("longer")},
        {"pad.newer.desc", named("other")}, {"pad.new.two.desc", named("too long")},
        {"pad.new.txt", named("no desc")},  {"another.desc", named("another")},
    };
    EXPECT_EQ(readBeside("pad.new.events", down, descriptions).device, "longer");
    EXPECT_EQ(readBeside("pad.new.tap.events", down, descriptions).device, "longer");
    EXPECT_EQ(readBeside("pad.tap.events", down, descriptions).device, "short");
    EXPECT_EQ(readBeside("pad tap.events", down, descriptions).device, "short");
}

TEST(EvemuReader, PrefersTheDescriptionInTheRecording) {
    EXPECT_EQ(readBeside("pad.events", head + down, {{"pad.desc", named("beside")}}).device,
              "A # pad");
}

TEST(EvemuReader, RejectsARecordingWithoutADescription) {
    const std::string message =
        "does not describe its device, and there is no .desc file beside it";
    EXPECT_EQ(readRecords(down).error, "file: " + message);
    EXPECT_EQ(readBeside("pad.events", down, {{"other.desc", head}}).error,
              "pad.events: " + message);
    EXPECT_EQ(readBeside("pad.events", "# from a friend\n" + down, {}).error,
              "pad.events: " + message);
}

TEST(EvemuReader, ErrorNamesTheMalformedDescriptionFile) {
    EXPECT_THAT(readBeside("pad.events", down, {{"pad.desc", "N: pad\nA: 2f\n"}}).error,
                testing::EndsWith(
                    "/pad.desc:2: an axis is not \"A: axis min max fuzz flat [resolution]\""));
}

TEST(EvemuReader, RejectsADeviceWithoutSlotsOrPositions) {
    EXPECT_EQ(readRecords("N: old\nA: 00 0 100 0 0\nA: 35 0 9 0 0\nA: 36 0 9 0 0\n" + down).error,
              "file: the device does not report its contacts in slots (it has no ABS_MT_SLOT)");
    EXPECT_EQ(readRecords("N: odd\nA: 2f 0 1 0 0\nA: 36 0 9 0 0\n" + down).error,
              "file: the device does not report contact positions (it has no "
              "ABS_MT_POSITION_X or ABS_MT_POSITION_Y)");
}

struct BadRow {
    const char* line;
    const char* message;
};

TEST(EvemuReader, ReportsLocationAndReasonForAMalformedLine) {
    const char* event = "an event is not \"E: seconds.microseconds type code value\"";
    const BadRow rows[] = {
        {"E:", event},
        {"E: 1.0 3 39", event},
        {"E: 1.0 3 39 1 1", event},
        {"E: 1 3 39 1", event},
        {"E: 1. 3 39 1", event},
        {"E: .5 3 39 1", event},
        {"E: -1.0 3 39 1", event},
        {"E: 1.-5 3 39 1", event},
        {"E: 1.5x 3 39 1", event},
        {"E: 4294967296.0 3 39 1", event},
        {"E: 1.0 10000 39 1", event},
        {"E: 1.0 3 -1 1", event},
        {"E: 1.0 3 xy 1", event},
        {"E: 1.0 3 39 2147483648", event},
        {"E: 1.0 3 39 0x1", event},
        {"E: 1.0 3 39 # 1", event},
        {"hello", event},
        {"N: again", event},
    };
    for (const BadRow& row : rows) {
        const ReadRecording recording = readRecords(head + down + row.line + "\n" + up);
        EXPECT_THAT(recording.records, ElementsAre("0.5: 1@0.25,0.75 state 3")) << row.line;
        EXPECT_EQ(recording.error, std::string("file:15: ") + row.message) << row.line;
    }
}

TEST(EvemuReader, ReportsLocationAndReasonForAMalformedDescription) {
    const char* axis = "an axis is not \"A: axis min max fuzz flat [resolution]\"";
    const char* properties = "properties are not bytes in hexadecimal";
    const BadRow rows[] = {
        {"A: 2f 0 4 0", axis},
        {"A: 2f 0 4 0 0 x", axis},
        {"A: 10000 0 4 0 0", axis},
        {"A: 2f 0 99999999999 0 0", axis},
        {"A:", axis},
        {"P: 100", properties},
        {"P: 0g", properties},
    };
    for (const BadRow& row : rows) {
        const ReadRecording recording =
            readRecords(std::string("N: pad\n") + row.line + "\n" + down);
        EXPECT_THAT(recording.records, IsEmpty()) << row.line;
        EXPECT_EQ(recording.error, std::string("file:2: ") + row.message) << row.line;
    }
}

TEST(EvemuReader, AcceptsAnImpossibleDescription) {
    const char* const heads[] = {
        "A: 2f 0 2147483647 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n",
        "A: 2f 0 -2147483648 0 0\nA: 35 0 100 0 0\nA: 36 0 100 0 0\n",
        "A: 2f 0 4 0 0\nA: 35 100 -100 0 0\nA: 36 7 7 0 0 -5\n",
        "A: 2f 0 4 0 0\nA: 35 -2147483648 2147483647 0 0\nA: 36 0 2147483647 0 0\n",
    };
    for (const char* impossible : heads) {
        const ReadRecording recording = readRecords(impossible + down + up);
        EXPECT_EQ(recording.error, "") << impossible;
        EXPECT_EQ(recording.records.size(), 2U) << impossible;
    }
}

} // namespace
} // namespace glidemap::test
