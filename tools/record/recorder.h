// Writes records in order, on its own thread: a slow disk must not block the touch driver.
//
// Thread:  report() and button() on the driver's thread; finish() once, on another thread, after
//          the last call of report() and button().
// Owner:   the caller, who also owns the stream; only the recorder may use the stream until
//          finish().
// Errors:  the first failed write calls onFailure once, on the recorder's thread; later records are
//          not written.
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
    Recorder(std::ostream& stream, const std::string& device, std::function<void()> onFailure);
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    void report(const MTTouch* records, std::int32_t count, double time);
    void button(std::int32_t button, bool down, double time);

    // Waits until every record is written.
    void finish();

    // Returns the errno of the failed write, or 0.
    int error() const { return _error; }

private:
    void write(const Record& record);
    template <typename Write>
    void attempt(Write write);

    std::ostream& stream;
    RecordingWriter writer;
    std::function<void()> onFailure;
    std::atomic<int> _error = 0;
    // The last member, so that its tasks end before the other members are destroyed.
    ThreadedSerialQueue queue;
};

} // namespace glidemap::record
