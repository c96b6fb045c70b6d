#include "kit/performance.h"

#include "kit/engine_stage.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <algorithm>
#include <iterator>

namespace glidemap::test {

namespace {

std::vector<ReportedGesture> performThroughRecognizer(std::span<const TouchFrame> frames,
                                                      const std::vector<int>& boundDoubleTaps) {
    VirtualTime time;
    std::vector<ReportedGesture> reported;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    recognizer->onGesture = [&](GestureType gesture) {
        reported.push_back({time.now(), gesture});
    };
    recognizer->doubleTapBindingExists = [&](int count) {
        return std::ranges::find(boundDoubleTaps, count) != boundDoubleTaps.end();
    };
    for (const TouchFrame& frame : frames) {
        time.advanceTo(frame.timestamp);
        recognizer->process(frame);
    }
    time.runRemaining();
    return reported;
}

std::vector<ReportedGesture> performThroughEngine(std::span<const TouchFrame> frames,
                                                  const std::vector<int>& boundDoubleTaps) {
    EngineStage stage(boundDoubleTaps);
    stage.play(frames);
    stage.finish();
    return stage.reported;
}

} // namespace

std::vector<ReportedGesture> perform(std::span<const TouchFrame> frames,
                                     const PerformanceStage& stage) {
    return stage.through == Through::recognizer
               ? performThroughRecognizer(frames, stage.boundDoubleTaps)
               : performThroughEngine(frames, stage.boundDoubleTaps);
}

std::vector<ReportedGesture> perform(const Script& script, const PerformanceStage& stage) {
    return perform(script.frames(), stage);
}

std::vector<GestureType> gesturesOf(std::span<const ReportedGesture> reported) {
    std::vector<GestureType> gestures;
    std::ranges::transform(reported, std::back_inserter(gestures), &ReportedGesture::gesture);
    return gestures;
}

std::string written(std::span<const ReportedGesture> reported) {
    std::string lines;
    for (const ReportedGesture& one : reported) {
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

} // namespace glidemap::test
