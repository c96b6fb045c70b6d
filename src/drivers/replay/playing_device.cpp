#include "drivers/replay/playing_device.h"

#include "recording/recording_reader.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace glidemap::replay {

namespace {

using Clock = std::chrono::steady_clock;

// A typical interval between two reports of a pad. Fingers that are still down at the end of a
// recording are lifted after this interval.
constexpr double reportInterval = 0.008;

// Longer than the maximum wait for the second half of a gesture, so that the end of one pass and
// the beginning of the next do not form a gesture.
constexpr double pauseBetweenPasses = 1;

// A recording may contain arbitrary times. This limit is longer than any real recording, and the
// clock can represent it.
constexpr double maxPlayingTime = 1e9;

double seconds(Clock::time_point time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

Clock::duration clockDuration(double duration) {
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(duration));
}

void complain(const std::string& problem) {
    std::fprintf(stderr, "Glidemap's replay driver: %s\n", problem.c_str());
}

std::optional<std::vector<Record>> readWhole(const char* path) {
    const auto reader = openRecordingFile(path, path);
    std::vector<Record> records;
    Record record;
    while (reader->next(record)) {
        records.push_back(record);
    }
    if (reader->error()) {
        complain(text(*reader->error()));
        return std::nullopt;
    }
    return records;
}

} // namespace

// One playback, from start() to stop().
class PlayingDevice::Run : public std::enable_shared_from_this<Run> {
public:
    explicit Run(PlayingDevice& played) : device(played) {}

    void begin() {
        thread = std::thread([self = shared_from_this()] { self->play(); });
    }

    void end();

private:
    void play();
    bool playPass();
    void deliver(const Record& record);
    bool liftAll();
    void advance(double interval);
    bool waitUntilDue();
    double timestamp() const { return seconds(startTime) + elapsed; }

    PlayingDevice& device;
    const Clock::time_point startTime = Clock::now();
    double elapsed = 0; // in seconds, from `startTime` to the next record
    bool isTouching = false;
    std::vector<std::int32_t> heldButtons;
    std::vector<MTTouch> touches;
    std::thread thread;

    std::mutex mutex;
    std::condition_variable wake;
    bool ended = false;
};

void PlayingDevice::Run::end() {
    {
        const std::lock_guard lock(mutex);
        ended = true;
    }
    wake.notify_all();
    if (thread.get_id() == std::this_thread::get_id()) {
        thread.detach(); // it ends when the callback that stopped the device returns
    } else {
        thread.join();
    }
}

void PlayingDevice::Run::play() {
    if (device.records.empty()) {
        return;
    }
    while (playPass() && device.repetition == Repetition::forever) {
        advance(pauseBetweenPasses);
    }
}

// Returns whether the pass was played completely.
bool PlayingDevice::Run::playPass() {
    double last = timeOf(device.records.front());
    for (const Record& record : device.records) {
        advance(timeOf(record) - std::exchange(last, timeOf(record)));
        if (!waitUntilDue()) {
            return false;
        }
        const Gate gate = device.closeGate();
        if (device.current.get() != this) {
            return false;
        }
        deliver(record);
    }
    return liftAll();
}

void PlayingDevice::Run::advance(double interval) {
    elapsed = std::min(elapsed + std::max(interval, 0.0), maxPlayingTime);
}

bool PlayingDevice::Run::waitUntilDue() {
    std::unique_lock lock(mutex);
    return !wake.wait_until(lock, startTime + clockDuration(elapsed), [this] { return ended; });
}

void PlayingDevice::Run::deliver(const Record& record) {
    if (const auto* report = std::get_if<Report>(&record)) {
        touches = report->touches;
        for (MTTouch& touch : touches) {
            touch.timestamp = timestamp();
        }
        isTouching = !touches.empty();
        device.report(isTouching ? touches.data() : nullptr,
                      static_cast<std::int32_t>(touches.size()), timestamp());
    } else if (const auto* change = std::get_if<ButtonRecord>(&record)) {
        std::erase(heldButtons, change->button);
        if (change->down) {
            heldButtons.push_back(change->button);
        }
        device.reportButton(change->button, change->down, timestamp());
    }
}

// Ends all contacts and releases all buttons at the end of a pass. Returns false if the device was
// stopped.
bool PlayingDevice::Run::liftAll() {
    if (!isTouching && heldButtons.empty()) {
        return true;
    }
    advance(reportInterval);
    if (!waitUntilDue()) {
        return false;
    }
    const Gate gate = device.closeGate();
    if (isTouching && device.current.get() == this) {
        deliver(Report{});
    }
    while (!heldButtons.empty() && device.current.get() == this) {
        deliver(ButtonRecord{0, heldButtons.back(), false});
    }
    return device.current.get() == this;
}

PlayingDevice::PlayingDevice(std::vector<Record> recorded, Repetition howOften)
    : records(std::move(recorded)), repetition(howOften) {}

void PlayingDevice::start() {
    const Gate gate = closeGate(); // so that no record is delivered before `thread` is set
    if (current == nullptr) {
        current = std::make_shared<Run>(*this);
        current->begin();
    }
}

void PlayingDevice::stop() {
    std::shared_ptr<Run> stopped;
    {
        const Gate gate = closeGate(); // waits for a running callback
        stopped = std::exchange(current, nullptr);
    }
    if (stopped != nullptr) {
        stopped->end();
    }
}

// NOLINTBEGIN(concurrency-mt-unsafe): nothing changes the environment while other threads run
std::unique_ptr<ReplayDevice> deviceFromEnvironment() {
    const char* path = std::getenv("GLIDEMAP_RECORDING");
    if (path == nullptr || *path == '\0') {
        complain("GLIDEMAP_RECORDING does not name a recording");
        return nullptr;
    }
    auto records = readWhole(path);
    if (!records) {
        return nullptr;
    }
    const char* loop = std::getenv("GLIDEMAP_RECORDING_LOOP");
    const bool loops = loop != nullptr && std::string_view(loop) == "1";
    return std::make_unique<PlayingDevice>(std::move(*records),
                                           loops ? Repetition::forever : Repetition::once);
}
// NOLINTEND(concurrency-mt-unsafe)

} // namespace glidemap::replay
