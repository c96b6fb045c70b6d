#include "read_records.h"
#include "recording/recording_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>

namespace glidemap::test {
namespace {

MTTouch touch(std::int32_t identifier, float x, float y, std::int32_t state) {
    MTTouch result{};
    result.identifier = identifier;
    result.state = state;
    result.normalized.pos = {x, y};
    return result;
}

std::string written(const Record& record) {
    std::ostringstream stream;
    RecordingWriter(stream).write(record);
    return stream.str();
}

TEST(RecordingWriter, WritesOneLinePerRecord) {
    std::ostringstream stream;
    RecordingWriter writer(stream);
    writer.writeHead("A \"pad\"");
    writer.write(Report{12.345678, {touch(1, 0.1F, 0.25F, 3), touch(-2, 1, 0, 4)}});
    writer.write(Report{12.35, {}});
    writer.write(ButtonRecord{13, 0, true});
    writer.write(ButtonRecord{13.5, 1, false});
    writer.write(FrontmostRecord{14, FrontmostRecord::Application{"org.example.App", "Ex\n\"é\""}});
    writer.write(FrontmostRecord{15, std::nullopt});
    writer.write(TimeRecord{16});
    EXPECT_EQ(stream.str(), R"({"glidemap-recording":1,"device":"A \"pad\""}
{"t":12.345678,"touches":[[1,0.1,0.25,3],[-2,1.0,0.0,4]]}
{"t":12.350000,"touches":[]}
{"t":13.000000,"button":0,"down":true}
{"t":13.500000,"button":1,"down":false}
{"t":14.000000,"frontmost":{"bundleID":"org.example.App","name":"Ex\n\"é\""}}
{"t":15.000000,"frontmost":null}
{"t":16.000000}
)");
}

TEST(RecordingWriter, OmitsTheDeviceNameIfTheDeviceIsUnknown) {
    std::ostringstream stream;
    RecordingWriter(stream).writeHead("");
    EXPECT_EQ(stream.str(), "{\"glidemap-recording\":1}\n");
}

TEST(RecordingWriter, RoundsTimesToMicroseconds) {
    struct Row {
        double time;
        const char* line;
    };
    const Row rows[] = {
        {0, "{\"t\":0.000000}\n"},
        {0.0000004, "{\"t\":0.000000}\n"},
        {0.0000006, "{\"t\":0.000001}\n"},
        {0.9999996, "{\"t\":1.000000}\n"},
        {-0.25, "{\"t\":-0.250000}\n"},
        {-0.0000001, "{\"t\":0.000000}\n"},
        {1338280591.517526, "{\"t\":1338280591.517526}\n"},
        {1e300, "{\"t\":1e+300}\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(written(TimeRecord{row.time}), row.line);
    }
}

TEST(RecordingWriter, OmitsNonFiniteValues) {
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(written(TimeRecord{std::nan("")}), "");
    EXPECT_EQ(written(Report{infinity, {}}), "");
    EXPECT_EQ(
        written(Report{
            1, {touch(1, std::nanf(""), 0, 4), touch(2, 0.5F, 0.5F, 4), touch(3, 0, infinity, 4)}}),
        "{\"t\":1.000000,\"touches\":[[2,0.5,0.5,4]]}\n");
}

TEST(RecordingWriter, ReplacesInvalidUtf8) {
    EXPECT_EQ(written(FrontmostRecord{1, FrontmostRecord::Application{"a\xFF", "b"}}),
              "{\"t\":1.000000,\"frontmost\":{\"bundleID\":\"a\uFFFD\",\"name\":\"b\"}}\n");
}

// Every float reads back unchanged, at every magnitude.
TEST(RecordingWriter, PreservesPositionsExactly) {
    std::mt19937 random(7);
    std::uniform_int_distribution<std::uint32_t> bits;
    std::ostringstream stream;
    RecordingWriter writer(stream);
    std::vector<MTTouch> expected;
    while (expected.size() < 20'000) {
        const bool onPad = expected.size() % 2 == 0;
        const std::uint32_t pattern = bits(random);
        const float position =
            onPad ? static_cast<float>(pattern) / 4294967296.0F : std::bit_cast<float>(pattern);
        if (std::isfinite(position)) {
            expected.push_back(touch(1, position, -position, 4));
        }
    }
    writer.write(Report{1, expected});
    std::istringstream input(stream.str());
    const auto reader = openRecording(input, "file");
    Record record;
    ASSERT_TRUE(reader->next(record));
    const auto& touches = std::get<Report>(record).touches;
    ASSERT_EQ(touches.size(), expected.size());
    for (std::size_t index = 0; index < touches.size(); ++index) {
        ASSERT_EQ(touches[index].normalized.pos.x, expected[index].normalized.pos.x);
        ASSERT_EQ(touches[index].normalized.pos.y, expected[index].normalized.pos.y);
    }
}

TEST(RecordingWriter, RecordsRoundTripThroughTheReader) {
    const Record records[] = {
        Report{0.008, {touch(1, 0.3F, 0.7F, 3), touch(5, 0.1234567F, 1e-9F, 7)}},
        ButtonRecord{0.5, 2, true},
        FrontmostRecord{1, FrontmostRecord::Application{"b", "Näme\t\\"}},
        FrontmostRecord{2, std::nullopt},
        TimeRecord{3},
        Report{2.5, {}},
    };
    std::ostringstream stream;
    RecordingWriter writer(stream);
    writer.writeHead("pad");
    for (const Record& record : records) {
        writer.write(record);
    }
    const ReadRecording recording = readRecords(stream.str());
    EXPECT_EQ(recording.device, "pad");
    EXPECT_EQ(recording.error, "");
    EXPECT_THAT(recording.records,
                testing::ElementsAre("0.008: 1@0.3,0.7 state 3, 5@0.123457,1e-09 state 7",
                                     "0.5: button 2 down", "1: frontmost b 'Näme\t\\'",
                                     "2: frontmost none", "3: time", "2.5: nothing"));
}

} // namespace
} // namespace glidemap::test
