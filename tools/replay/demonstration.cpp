#include "demonstration.h"

#include "choreography/performance.h"
#include "run.h"

#include <set>
#include <utility>
#include <variant>
#include <vector>

namespace glidemap::replay {

namespace {

// Pause between two performances: long enough that taps are not paired, and for a person to follow.
constexpr double pause = 0.6;

// Without a bound double tap, its first half would be reported as a single tap.
std::set<int> boundFor(GestureType gesture) {
    switch (gesture) {
    case GestureType::twoFingerDoubleTap:
        return {2};
    case GestureType::threeFingerDoubleTap:
        return {3};
    case GestureType::fourFingerDoubleTap:
        return {4};
    default:
        return {};
    }
}

bool isExactly(const std::vector<Recognised>& outcome, GestureType intended) {
    return outcome.size() == 1 && outcome.front().gesture == intended && outcome.front().delivered;
}

// Plays from the run's current time until every waiting tap has fired.
void play(const Performance& performance, Run& run, Statistics& statistics) {
    const double begin = run.now();
    for (const TimedReport& report : performance) {
        const double time = begin + report.time;
        statistics.count(time, report.touches);
        run.play(time, report.touches);
    }
    run.advanceTo(run.now() + pause);
}

} // namespace

Status demonstrate(const Options& options, ReplayDriver& driver, Printer& printer,
                   Statistics& statistics) {
    const auto speed = options.realTime ? Pace::Speed::realTime : Pace::Speed::asFastAsPossible;
    std::vector<Recognised> outcome;
    Run run(driver, speed, {}, [&](const RunEvent& event) {
        if (const auto* recognised = std::get_if<Recognised>(&event)) {
            outcome.push_back(*recognised);
            statistics.count(*recognised);
        }
    });
    const std::vector<GestureType> gestures = performableGestures();
    std::size_t asIntended = 0;
    statistics.beginRun();
    for (const GestureType intended : gestures) {
        outcome.clear();
        printer.printIntention(intended);
        run.bindDoubleTaps(boundFor(intended));
        play(perform(intended, options.seed), run, statistics);
        const bool isAsIntended = isExactly(outcome, intended);
        asIntended += isAsIntended ? 1 : 0;
        printer.printOutcome(intended, outcome, isAsIntended);
    }
    printer.printSummary(gestures.size(), asIntended);
    return asIntended == gestures.size() ? Status::success : Status::failure;
}

} // namespace glidemap::replay
