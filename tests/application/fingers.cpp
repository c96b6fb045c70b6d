#include "fingers.h"

#include "choreography/performance.h"
#include "recording/recording_writer.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <utility>

namespace glidemap::test {

namespace {

constexpr std::uint64_t anyHand = 1;
constexpr double pauseBetweenGestures = 2; // in seconds; exceeds the timeout of every gesture

} // namespace

Fingers::Fingers(std::filesystem::path place) : path(std::move(place)) {
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0) << path;
    stream.open(path, std::ios::in | std::ios::out);
    EXPECT_TRUE(stream.is_open()) << path;
}

void Fingers::make(GestureType gesture) {
    const Performance performance = perform(gesture, anyHand);
    EXPECT_FALSE(performance.empty()) << rawValue(gesture) << " is not made by contacts";
    RecordingWriter writer(stream);
    const double start = std::exchange(now, now + pauseBetweenGestures);
    for (const TimedReport& report : performance) {
        writer.write(Report{start + report.time, report.touches});
        now = start + report.time + pauseBetweenGestures;
    }
    stream.flush();
}

} // namespace glidemap::test
