#include "recorder.h"

#include <cerrno>
#include <future>
#include <utility>
#include <vector>

namespace glidemap::record {

Recorder::Recorder(std::ostream& stream, const std::string& device, std::function<void()> onFailure)
    : stream(stream), writer(stream), onFailure(std::move(onFailure)) {
    queue.submit(
        [this, device = std::string(device)] { attempt([&] { writer.writeHead(device); }); });
}

void Recorder::report(const MTTouch* records, std::int32_t count, double time) {
    Report report{time, {}};
    if (records != nullptr && count > 0) {
        report.touches.assign(records, records + count);
    }
    queue.submit([this, report = std::move(report)]() mutable { write(std::move(report)); });
}

void Recorder::button(std::int32_t button, bool down, double time) {
    queue.submit([this, record = ButtonRecord{time, button, down}] { write(record); });
}

void Recorder::write(const Record& record) {
    attempt([&] { writer.write(record); });
}

// Flushes the stream after every record, so that a concurrent reader sees the record immediately
// and a killed recorder loses no earlier record.
template <typename Write>
void Recorder::attempt(Write writeOne) {
    if (_error != 0) {
        return;
    }
    errno = 0;
    writeOne();
    stream.flush();
    if (!stream) {
        _error = errno != 0 ? errno : EIO;
        onFailure();
    }
}

void Recorder::finish() {
    std::promise<void> written;
    queue.submit([&written] { written.set_value(); });
    written.get_future().wait();
    queue.stop();
}

} // namespace glidemap::record
