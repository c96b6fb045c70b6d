#include "recorder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <fstream>
#include <limits>
#include <sstream>

namespace glidemap::record {
namespace {

MTTouch touchAt(float x, float y, std::int32_t state) {
    MTTouch touch{};
    touch.identifier = 7;
    touch.state = state;
    touch.normalized.pos = {x, y};
    return touch;
}

TEST(Recorder, WritesAllRecordsInOrder) {
    std::ostringstream output;
    int failures = 0;
    Recorder recorder(output, "Pad", [&failures] { ++failures; });
    const MTTouch touches[] = {touchAt(0.25F, 0.5F, 3), touchAt(0.75F, 1, 2)};
    recorder.report(touches, 2, 1.5);
    recorder.button(1, true, 1.5);
    recorder.report(nullptr, 0, 1.625);
    recorder.report(nullptr, 3, 1.75);
    recorder.report(touches, -1, 2);
    recorder.finish();
    EXPECT_EQ(output.str(), "{\"glidemap-recording\":1,\"device\":\"Pad\"}\n"
                            "{\"t\":1.500000,\"touches\":[[7,0.25,0.5,3],[7,0.75,1.0,2]]}\n"
                            "{\"t\":1.500000,\"button\":1,\"down\":true}\n"
                            "{\"t\":1.625000,\"touches\":[]}\n"
                            "{\"t\":1.750000,\"touches\":[]}\n"
                            "{\"t\":2.000000,\"touches\":[]}\n");
    EXPECT_EQ(recorder.error(), 0);
    EXPECT_EQ(failures, 0);
}

TEST(Recorder, ReportsAFullDiskOnceWithTheReason) {
    std::ofstream full("/dev/full");
    ASSERT_TRUE(full.is_open());
    std::atomic<int> failures = 0;
    Recorder recorder(full, "Pad", [&failures] { ++failures; });
    for (int count = 0; count < 100; ++count) {
        recorder.report(nullptr, 0, count);
    }
    recorder.finish();
    EXPECT_EQ(recorder.error(), ENOSPC);
    EXPECT_EQ(failures, 1);
}

TEST(Recorder, FinishWritesAllQueuedRecords) {
    std::ostringstream output;
    Recorder recorder(output, "", [] {});
    constexpr int many = 5000; // more records than the writer's queue can hold
    for (int count = 0; count < many; ++count) {
        recorder.report(nullptr, 0, count);
    }
    recorder.finish();
    std::istringstream lines(output.str());
    int written = 0;
    for (std::string line; std::getline(lines, line);) {
        ++written;
    }
    EXPECT_EQ(written, many + 1);
}

} // namespace
} // namespace glidemap::record
