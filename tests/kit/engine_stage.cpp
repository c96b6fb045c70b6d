#include "kit/engine_stage.h"

#include "kit/records.h"

#include <algorithm>
#include <utility>

namespace glidemap::test {

EngineStage::EngineStage(std::vector<int> boundDoubleTaps) : manager({"/no/such/driver", {}}) {
    engine = TouchEngine::create({time.clock(), time.queue(), time.delayedWork(), &manager});
    engine->onGesture = [this](GestureType gesture) {
        reported.push_back({time.now(), gesture});
    };
    engine->sessionRecognizer().doubleTapBindingExists =
        [bound = std::move(boundDoubleTaps)](int count) {
            return std::ranges::find(bound, count) != bound.end();
        };
    engine->start();
}

EngineStage::~EngineStage() {
    MultitouchDeviceManager::setFrameSink({});
}

void EngineStage::submit(const TouchFrame& frame) {
    time.advanceTo(frame.timestamp);
    report(frame);
}

void EngineStage::play(std::span<const TouchFrame> frames) {
    for (const TouchFrame& frame : frames) {
        submit(frame);
        run();
    }
}

void EngineStage::play(const Script& script) {
    play(script.frames());
}

void report(const TouchFrame& frame) {
    report(recordsOf(frame), frame.timestamp);
}

void report(std::vector<MTTouch> records, double timestamp) {
    const auto count = static_cast<std::int32_t>(records.size());
    MultitouchDeviceManager::contactCallback(nullptr, records.data(), count, timestamp, 0);
    std::ranges::fill(records, record(-7, -7, -7));
}

} // namespace glidemap::test
