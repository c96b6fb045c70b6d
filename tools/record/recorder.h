// Writes what it is given as a recording, in order, on a thread of its own: a slow disk must not
// hold up the touch driver.
//
// Thread:  report() and button() on the driver's thread; finish() once, on another, after the last
//          of them.
// Owner:   the caller, as is the stream, which is used by the recorder alone until finish().
// Errors:  the first time that something cannot be written, onFailure is called, once, on the
//          recorder's thread; nothing more is written.
#pragma once

#include "input/mt_touch.h"
#include "platform/common/threaded_serial_queue.h"
#include "recording/recording_writer.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

namespace glidemap::record {

class Recorder {
public:
    Recorder(std::ostream& output, const std::string& device, std::function<void()> onFailure);
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    void report(const MTTouch* records, std::int32_t count, double time);
    void button(std::int32_t button, bool down, double time);

    // Waits until everything is written.
    void finish();

    // Why something could not be written, an errno; 0 if everything was.
    int error() const { return _error; }

private:
    void write(const Record& record);
    template <typename Write>
    void attempt(Write write);

    std::ostream& stream;
    RecordingWriter writer;
    std::function<void()> onFailure;
    std::atomic<int> _error = 0;
    ThreadedSerialQueue queue; // last, so that its tasks end first
};

} // namespace glidemap::record
