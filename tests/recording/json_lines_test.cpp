#include "read_records.h"
#include "recording/json_line.h"
#include "recording/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct GoodRow {
    const char* why;
    std::string content;
    std::vector<std::string> records;
};

void PrintTo(const GoodRow& row, std::ostream* out) {
    *out << row.why;
}

const GoodRow goodRows[] = {
    {"nothing at all", "", {}},
    {"only blank lines", "\n  \t\n\r\n", {}},
    {"one contact", R"({"t":0.5,"touches":[[1,0.25,0.75,4]]})", {"0.5: 1@0.25,0.75 state 4"}},
    {"several contacts, in their order",
     R"({"t":0.5,"touches":[[7,0.1,0.2,3],[-2,0.3,0.4,7]]})",
     {"0.5: 7@0.1,0.2 state 3, -2@0.3,0.4 state 7"}},
    {"the same identifier twice",
     R"({"t":0,"touches":[[1,0,0,4],[1,1,1,4]]})",
     {"0: 1@0,0 state 4, 1@1,1 state 4"}},
    {"no contact", R"({"t":0.5,"touches":[]})", {"0.5: nothing"}},
    {"a button", R"({"t":1,"button":2,"down":false})", {"1: button 2 up"}},
    {"an application",
     R"({"t":1,"frontmost":{"bundleID":"org.example.App","name":"Example"}})",
     {"1: frontmost org.example.App 'Example'"}},
    {"an application without a name",
     R"({"t":1,"frontmost":{"bundleID":"org.example.App"}})",
     {"1: frontmost org.example.App ''"}},
    {"no application", R"({"t":1,"frontmost":null})", {"1: frontmost none"}},
    {"a time and unknown keys", R"({"t":1,"battery":[1,{"a":[]}]})", {"1: time"}},
    {"a time and nothing else", R"({"t":1})", {"1: time"}},
    {"keys in any order",
     R"({"touches":[[1,0.25,0.75,4]],"t":0.5})"
     "\n"
     R"({"down":true,"t":1,"button":0})",
     {"0.5: 1@0.25,0.75 state 4", "1: button 0 down"}},
    {"the last value of a repeated key",
     R"({"t":1,"touches":[[1,0,0,4]],"t":2,"touches":[[2,1,1,4]]})",
     {"2: 2@1,1 state 4"}},
    {"unknown keys anywhere, with any values",
     R"({"pen":{"touches":[[1]],"t":"x"},"t":1,"touches":[[1,0,0,4]],"e":[[[]]],"n":null})"
     "\n"
     R"({"t":2,"frontmost":{"pid":[7],"bundleID":"b","x":{"name":1},"name":"n"}})",
     {"1: 1@0,0 state 4", "2: frontmost b 'n'"}},
    {"a device outside a head", R"({"t":1,"device":["x"]})", {"1: time"}},
    {"time that goes backwards, below zero too",
     "{\"t\":2}\n{\"t\":1}\n{\"t\":-1.5}\n",
     {"2: time", "1: time", "-1.5: time"}},
    {"lines that end in CRLF, and blank ones",
     "\r\n{\"t\":1}\r\n\r\n  \n{\"t\":2}\r\n",
     {"1: time", "2: time"}},
    {"a last line without a terminator", "{\"t\":1}\n{\"t\":2}", {"1: time", "2: time"}},
    {"blanks around everything",
     "  { \"t\" : 1 , \"touches\" : [ [ 1 , 0 , 1 , 4 ] ] }  ",
     {"1: 1@0,1 state 4"}},
    {"a byte order mark before the first line", "\xEF\xBB\xBF{\"t\":1}\n", {"1: time"}},
    {"positions outside the pad, and the largest that a float can hold",
     R"({"t":1,"touches":[[1,-0.5,1.5,4],[2,3.4028234e38,1e-300,4]]})",
     {"1: 1@-0.5,1.5 state 4, 2@3.40282e+38,0 state 4"}},
    {"the ends of the 32-bit numbers",
     R"({"t":1,"touches":[[2147483647,0,0,-2147483648]]})",
     {"1: 2147483647@0,0 state -2147483648"}},
    {"a head, repeated heads, and their other keys",
     R"({"glidemap-recording":1,"device":"pad","size":[100,60]})"
     "\n"
     R"({"t":1})"
     "\n"
     R"({"glidemap-recording":1})"
     "\n"
     R"({"t":2})",
     {"1: time", "2: time"}},
};

class WellFormedJsonLine : public testing::TestWithParam<GoodRow> {};

TEST_P(WellFormedJsonLine, YieldsItsRecords) {
    const ReadRecording recording = readRecords(GetParam().content);
    EXPECT_EQ(recording.records, GetParam().records);
    EXPECT_EQ(recording.error, "");
}

INSTANTIATE_TEST_SUITE_P(JsonLines, WellFormedJsonLine, testing::ValuesIn(goodRows));

struct BadRow {
    std::string line;
    const char* message;
};

void PrintTo(const BadRow& row, std::ostream* out) {
    *out << row.line;
}

std::string nested(int depth) {
    return R"({"t":1,"x":)" + std::string(static_cast<std::size_t>(depth), '[') +
           std::string(static_cast<std::size_t>(depth), ']') + "}";
}

std::string touches(std::size_t count) {
    std::string line = R"({"t":1,"touches":[[1,0,0,4])";
    for (std::size_t index = 1; index < count; ++index) {
        line += ",[1,0,0,4]";
    }
    return line + "]}";
}

const BadRow badRows[] = {
    {"hello", "not valid JSON at column 1"},
    {R"({"t":1,})", "not valid JSON at column 8"},
    {R"({"t":1} {"t":2})", "not valid JSON at column 9"},
    {R"({"t":01})", "not valid JSON at column 7"},
    {R"({"t":NaN})", "not valid JSON at column 6"},
    {R"({'t':1})", "not valid JSON at column 2"},
    {std::string("{\"t\":1}\0", 8), "not valid JSON at column 8"},
    {"{\"t\":1,\"x\":\"\xFF\"}", "not valid JSON at column 13"},
    {"{\"t\":1,\"x\":\"\xC3\"}", "not valid JSON at column 14"},
    {"{\"t\":1,\"x\":\"a\tb\"}", "not valid JSON at column 14"},
    {R"({"t":1,"touches":[[1,0.5)", "the line ends before its JSON does"},
    {R"({"t":1,"touches":[[1,0.5,)", "the line ends before its JSON does"},
    {R"({"t":1,"x":"abc)", "the line ends before its JSON does"},
    {R"({"t":1)", "the line ends before its JSON does"},
    {R"({"t":1e999})", "a number is out of range at column 10"},
    {"[1]", "not a JSON object"},
    {"7", "not a JSON object"},
    {"\"t\"", "not a JSON object"},
    {"null", "not a JSON object"},
    {"{}", "no time \"t\""},
    {R"({"touches":[]})", "no time \"t\""},
    {R"({"t":"1"})", "\"t\" is not a number"},
    {R"({"t":null})", "\"t\" is not a number"},
    {R"({"t":[1]})", "\"t\" is not a number"},
    {R"({"t":{"a":1}})", "\"t\" is not a number"},
    {R"({"t":true})", "\"t\" is not a number"},
    {R"({"t":1,"touches":null})", "\"touches\" is not an array"},
    {R"({"t":1,"touches":{}})", "\"touches\" is not an array"},
    {R"({"t":1,"touches":7})", "\"touches\" is not an array"},
    {R"({"t":1,"touches":[7]})", "touch 1: not an array of [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[1,0,0,4],{}]})", "touch 2: not an array of [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[]]})",
     "touch 1: fewer than the four elements [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[1,0,0]]})",
     "touch 1: fewer than the four elements [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[1,0,0,4,5]]})",
     "touch 1: more than the four elements [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[1,0,0,4,[]]]})",
     "touch 1: more than the four elements [identifier, x, y, state]"},
    {R"({"t":1,"touches":[[1.5,0,0,4]]})", "touch 1: the identifier is not a 32-bit integer"},
    {R"({"t":1,"touches":[[2147483648,0,0,4]]})",
     "touch 1: the identifier is not a 32-bit integer"},
    {R"({"t":1,"touches":[[18446744073709551615,0,0,4]]})",
     "touch 1: the identifier is not a 32-bit integer"},
    {R"({"t":1,"touches":[["1",0,0,4]]})", "touch 1: the identifier is not a 32-bit integer"},
    {R"({"t":1,"touches":[[1,null,0,4]]})", "touch 1: x is not a valid position"},
    {R"({"t":1,"touches":[[1,3.5e38,0,4]]})", "touch 1: x is not a valid position"},
    {R"({"t":1,"touches":[[1,0,"0",4]]})", "touch 1: y is not a valid position"},
    {R"({"t":1,"touches":[[1,0,[0],4]]})", "touch 1: y is not a valid position"},
    {R"({"t":1,"touches":[[1,0,0,4.0]]})", "touch 1: the state is not a 32-bit integer"},
    {R"({"t":1,"touches":[[1,0,0,-2147483649]]})", "touch 1: the state is not a 32-bit integer"},
    {R"({"t":1,"touches":[[1,0,0,{}]]})", "touch 1: the state is not a 32-bit integer"},
    {R"({"t":1,"button":0})", "\"button\" without \"down\""},
    {R"({"t":1,"down":true})", "\"down\" without \"button\""},
    {R"({"t":1,"button":"left","down":true})", "\"button\" is not a 32-bit integer"},
    {R"({"t":1,"button":0.5,"down":true})", "\"button\" is not a 32-bit integer"},
    {R"({"t":1,"button":[],"down":true})", "\"button\" is not a 32-bit integer"},
    {R"({"t":1,"button":0,"down":1})", "\"down\" is neither true nor false"},
    {R"({"t":1,"button":0,"down":null})", "\"down\" is neither true nor false"},
    {R"({"t":1,"frontmost":"org.example.App"})", "\"frontmost\" is neither an object nor null"},
    {R"({"t":1,"frontmost":[]})", "\"frontmost\" is neither an object nor null"},
    {R"({"t":1,"frontmost":{}})", "\"frontmost\" has no \"bundleID\""},
    {R"({"t":1,"frontmost":{"name":"n"}})", "\"frontmost\" has no \"bundleID\""},
    {R"({"t":1,"frontmost":{"bundleID":7}})", "the \"bundleID\" of \"frontmost\" is not a string"},
    {R"({"t":1,"frontmost":{"bundleID":{}}})", "the \"bundleID\" of \"frontmost\" is not a string"},
    {R"({"t":1,"frontmost":{"bundleID":"b","name":[]}})",
     "the \"name\" of \"frontmost\" is not a string"},
    {R"({"t":1,"touches":[],"button":0,"down":true})",
     "more than one of \"touches\", \"button\" and \"frontmost\""},
    {R"({"t":1,"touches":[],"frontmost":null})",
     "more than one of \"touches\", \"button\" and \"frontmost\""},
    {R"({"glidemap-recording":2})",
     "version 2 of the recording format is not supported, only version 1"},
    {R"({"glidemap-recording":0})",
     "version 0 of the recording format is not supported, only version 1"},
    {R"({"glidemap-recording":"1"})", "\"glidemap-recording\" is not a version number"},
    {R"({"glidemap-recording":1.0})", "\"glidemap-recording\" is not a version number"},
    {R"({"glidemap-recording":{}})", "\"glidemap-recording\" is not a version number"},
    {nested(65), "values are nested more than 64 deep"},
    {nested(100'000), "values are nested more than 64 deep"},
    {touches(maxTouches + 1), "more than 65536 touches"},
};

class MalformedJsonLine : public testing::TestWithParam<BadRow> {};

TEST_P(MalformedJsonLine, EndsTheRecordingWithAnErrorThatHasLocationAndReason) {
    const ReadRecording recording =
        readRecords("{\"t\":0}\n\n" + GetParam().line + "\n{\"t\":9}\n");
    EXPECT_THAT(recording.records, ElementsAre("0: time"));
    EXPECT_EQ(recording.error, std::string("file:3: ") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(JsonLines, MalformedJsonLine, testing::ValuesIn(badRows));

TEST(JsonLinesReader, AcceptsNestingUpToTheLimit) {
    EXPECT_EQ(readRecords(nested(64)).error, "");
}

TEST(JsonLinesReader, AcceptsTouchesUpToTheLimit) {
    EXPECT_EQ(readRecords(touches(maxTouches)).error, "");
}

TEST(JsonLinesReader, ReturnsTheDeviceAfterReadingTheHeader) {
    std::istringstream stream("{\"glidemap-recording\":1,\"device\":\"Pad \\u00e9\"}\n{\"t\":1}\n");
    const auto reader = openRecording(stream, "file");
    Record record;
    ASSERT_TRUE(reader->next(record));
    EXPECT_EQ(reader->device(), "Pad \u00e9");
}

TEST(JsonLinesReader, SetsTheTimeOfEachContactToTheTimeOfTheReport) {
    std::istringstream stream(R"({"touches":[[1,0,0,4],[2,0,0,4]],"t":2.5})");
    const auto reader = openRecording(stream, "file");
    Record record;
    ASSERT_TRUE(reader->next(record));
    const auto& report = std::get<Report>(record);
    EXPECT_THAT(report.touches, ElementsAre(testing::Field(&MTTouch::timestamp, 2.5),
                                            testing::Field(&MTTouch::timestamp, 2.5)));
}

TEST(JsonLinesReader, DoesNotReuseContentOfThePreviousRecord) {
    std::istringstream stream("{\"t\":1,\"touches\":[[1,0,0,4],[2,0,0,4]]}\n"
                              "{\"t\":2,\"touches\":[]}\n"
                              "{\"t\":3,\"frontmost\":{\"bundleID\":\"b\",\"name\":\"n\"}}\n"
                              "{\"t\":4,\"frontmost\":{\"bundleID\":\"c\"}}\n"
                              "{\"t\":5,\"touches\":[[3,0,0,4]]}\n");
    const ReadRecording recording = readRecords(*openRecording(stream, "file"));
    EXPECT_THAT(recording.records,
                ElementsAre("1: 1@0,0 state 4, 2@0,0 state 4", "2: nothing", "3: frontmost b 'n'",
                            "4: frontmost c ''", "5: 3@0,0 state 4"));
}

// A recording in progress must be playable immediately.
TEST(JsonLinesReader, ReadsLinesAsTheyArrive) {
    std::stringstream stream;
    stream << "{\"t\":1}\n";
    const auto reader = openRecording(stream, "file");
    Record record;
    ASSERT_TRUE(reader->next(record));
    stream << "{\"t\":2}\n";
    ASSERT_TRUE(reader->next(record));
    EXPECT_EQ(timeOf(record), 2);
}

TEST(JsonLinesReader, ReadingAfterAMalformedLineFailsAgain) {
    std::istringstream stream("{}\n{\"t\":1}\n");
    const auto reader = openRecording(stream, "file");
    Record record;
    EXPECT_FALSE(reader->next(record));
    EXPECT_FALSE(reader->next(record));
    EXPECT_EQ(text(*reader->error()), "file:1: no time \"t\"");
}

TEST(JsonLinesReader, RejectsALineAboveTheLengthLimit) {
    const std::string before = "{\"t\":1,\"x\":\"";
    const std::string after = "\"}";
    const auto readLineOfLength = [&](std::size_t length, const std::string& end) {
        const std::size_t padding = length - before.size() - after.size();
        return readRecords("{\"t\":0}\n" + before + std::string(padding, 'x') + after + end);
    };
    for (const std::string end : {"", "\n", "\r\n"}) {
        EXPECT_EQ(readLineOfLength(maxLineLength, end).error, "");
        for (const std::size_t length : {maxLineLength + 1, maxLineLength + 2, 3 * maxLineLength}) {
            const ReadRecording tooLong = readLineOfLength(length, end);
            EXPECT_THAT(tooLong.records, ElementsAre("0: time")) << length;
            EXPECT_EQ(tooLong.error, "file:2: the line is longer than 16 MiB") << length;
        }
    }
}

TEST(OpenRecording, RejectsAnUnknownFormat) {
    const char* const strangers[] = {"P6\n1 1\n", "hello\n", "# only\n# comments\n",
                                     "\x7F"
                                     "ELF"};
    for (const char* content : strangers) {
        const ReadRecording recording = readRecords(std::string(content));
        EXPECT_THAT(recording.records, IsEmpty());
        EXPECT_EQ(recording.error, "file:1: not a recording by Glidemap, evemu or libinput record");
    }
}

TEST(OpenRecording, ReportsWhyAFileCannotBeOpened) {
    EXPECT_EQ(readRecordFile("no/such/recording").error,
              "recording: cannot be opened: No such file or directory");
}

TEST(OpenRecording, ReportsThatAFolderCannotBeRead) {
    EXPECT_THAT(readRecordFile(std::filesystem::temp_directory_path()).error,
                testing::EndsWith(":1: cannot be read"));
}

} // namespace
} // namespace glidemap::test
