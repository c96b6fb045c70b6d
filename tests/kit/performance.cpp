#include "kit/performance.h"

#include "kit/engine_stage.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <algorithm>
#include <iterator>

namespace glidemap::kit {

namespace {

std::vector<Heard> performThroughRecognizer(std::span<const TouchFrame> frames,
                                            const std::vector<int>& boundDoubleTaps) {
    VirtualTime time;
    std::vector<Heard> heard;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    recognizer->onGesture = [&](GestureType gesture) {
        heard.push_back({time.now(), gesture});
    };
    recognizer->doubleTapBindingExists = [&](int count) {
        return std::ranges::find(boundDoubleTaps, count) != boundDoubleTaps.end();
    };
    for (const TouchFrame& frame : frames) {
        time.advanceTo(frame.timestamp);
        recognizer->process(frame);
    }
    time.runRemaining();
    return heard;
}

std::vector<Heard> performThroughEngine(std::span<const TouchFrame> frames,
                                        const std::vector<int>& boundDoubleTaps) {
    EngineStage stage(boundDoubleTaps);
    stage.play(frames);
    stage.finish();
    return stage.heard;
}

} // namespace

std::vector<Heard> perform(std::span<const TouchFrame> frames, const Stage& stage) {
    return stage.through == Through::recognizer
               ? performThroughRecognizer(frames, stage.boundDoubleTaps)
               : performThroughEngine(frames, stage.boundDoubleTaps);
}

std::vector<Heard> perform(const Script& script, const Stage& stage) {
    return perform(script.frames(), stage);
}

std::vector<GestureType> gesturesOf(std::span<const Heard> heard) {
    std::vector<GestureType> gestures;
    std::ranges::transform(heard, std::back_inserter(gestures), &Heard::gesture);
    return gestures;
}

std::string written(std::span<const Heard> heard) {
    std::string lines;
    for (const Heard& one : heard) {
        lines += "\n    " + written(one.time) + " s: " + std::string(rawValue(one.gesture));
    }
    return lines.empty() ? " nothing" : lines;
}

std::string written(std::span<const GestureType> gestures) {
    std::string lines;
    for (const GestureType gesture : gestures) {
        lines += "\n    " + std::string(rawValue(gesture));
    }
    return lines.empty() ? " nothing" : lines;
}

} // namespace glidemap::kit
