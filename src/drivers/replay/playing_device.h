// Plays a recording in real time, as if its fingers touched a pad now.
//
//   one pass:  first record ──▶ … ──▶ last record ──▶ lifts all contacts and buttons
//   looping:   pass ── a pause ──▶ pass ── a pause ──▶ …
//
// Units:   timestamps are seconds of the steady clock: the start of playing plus the time since the
//          first record. They never go backwards, even if the recording's do.
// Thread:  one for each start(), on which the callbacks are called.
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

    // Plays from the first record. Does nothing while the device plays, or after it has played to
    // the end, until it is stopped.
    void start() override;
    void stop() override;

private:
    class Run;

    std::vector<Record> records;
    Repetition repetition;
    std::shared_ptr<Run> current; // guarded by the gate; null while stopped
};

// Creates the device that the environment selects: GLIDEMAP_RECORDING names the recording,
// GLIDEMAP_RECORDING_LOOP=1 repeats it. If any part of the recording cannot be read, writes the
// problem to standard error and returns null. Call it on the main thread.
std::unique_ptr<ReplayDevice> deviceFromEnvironment();

} // namespace glidemap::replay
