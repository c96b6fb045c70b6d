// Plays a recording in real time, as if the recorded fingers were touching a pad now.
//
//   one pass:  first record ──▶ … ──▶ last record ──▶ ends all contacts, releases all buttons
//   looping:   pass ── a pause ──▶ pass ── a pause ──▶ …
//
// Units:   seconds. A report's timestamp is the steady clock's time of start() plus the playing
//          time of the earlier records. Timestamps never decrease, even if those of the recording
//          do.
// Thread:  each start() creates a thread, on which the callbacks are called.
// Errors:  none.
#pragma once

#include "drivers/replay/replay_device.h"
#include "recording/record.h"

#include <memory>
#include <vector>

namespace glidemap::replay {

enum class Repetition {
    once,
    forever,
};

class PlayingDevice : public ReplayDevice {
public:
    PlayingDevice(std::vector<Record> records, Repetition repetition);

    // Plays from the first record. Has no effect if the device is already started, even if the
    // recording has been played to its end. To play it again, call stop() first.
    void start() override;
    void stop() override;

private:
    class Run;

    std::vector<Record> records;
    Repetition repetition;
    std::shared_ptr<Run> current; // guarded by the gate; null while stopped
};

// Creates the device that the environment selects: GLIDEMAP_RECORDING names the recording,
// GLIDEMAP_RECORDING_LOOP=1 repeats it. If no recording is named or any part of it cannot be read,
// writes the problem to standard error and returns null. Call this on the main thread.
std::unique_ptr<ReplayDevice> deviceFromEnvironment();

} // namespace glidemap::replay
