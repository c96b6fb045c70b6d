#include "demonstration.h"

#include "bindings/binding_json.h"
#include "bindings/binding_store.h"
#include "choreography/performance.h"
#include "recording/recording_writer.h"
#include "run.h"

#include <fstream>
#include <set>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace glidemap::replay {

namespace {

// The pause between two performances. It is too long for two taps to make a double tap, and long
// enough for a person to follow.
constexpr double pause = 0.6;

// Returns the finger counts whose double tap must be bound. Without a binding, the first half of a
// double tap is reported as a single tap.
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

// Plays from the run's current time until every delayed tap has fired.
void play(const Performance& performance, Run& run, Statistics& statistics) {
    const double begin = run.now();
    for (const TimedReport& report : performance) {
        const double time = begin + report.time;
        statistics.count(time, report.touches);
        run.play(time, report.touches);
    }
    run.advanceTo(run.now() + pause);
}

// Long enough for a person to see the gesture and to read its name.
constexpr double viewingPause = 1.5;

void writeRecording(std::ostream& stream, std::uint64_t seed) {
    RecordingWriter writer(stream);
    writer.writeHead("a demonstration of every gesture");
    writer.write(Report{0, {}});
    double start = viewingPause;
    for (const GestureType gesture : performableGestures()) {
        double end = start;
        for (const TimedReport& report : perform(gesture, seed)) {
            end = start + report.time;
            writer.write(Report{end, report.touches});
        }
        start = end + viewingPause;
    }
}

void writeBindings(std::ostream& stream) {
    BindingList bindings = defaultBindings();
    for (GestureBinding& binding : bindings) {
        binding.enabled = false;
    }
    stream << encodeBindings(bindings);
}

template <typename Write>
std::optional<std::string> writeFile(const std::filesystem::path& file, const Write& write) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    std::ofstream stream(file);
    write(stream);
    stream.close();
    return stream ? std::nullopt : std::optional(file.string() + " cannot be written");
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

std::optional<std::string> writeDemonstration(const std::filesystem::path& folder,
                                              std::uint64_t seed) {
    if (auto error = writeFile(folder / "recording.jsonl",
                               [seed](std::ostream& stream) { writeRecording(stream, seed); })) {
        return error;
    }
    const std::filesystem::path bindings = folder / "Glidemap" / "bindings.json";
    std::error_code ignored;
    return std::filesystem::exists(bindings, ignored) ? std::nullopt
                                                      : writeFile(bindings, writeBindings);
}

} // namespace glidemap::replay
