// growth [--smallest]: measures how the costs of recognition and of the bindings grow with their
// input. Prints a table with one line per size. If the cost per unit stays constant, the total cost
// is linear.
//
// Times are medians of several rounds. Files are written to the disk of TMPDIR.
#include "bench/touching.h"
#include "bindings/binding_json.h"
#include "bindings/binding_store.h"
#include "growth_table.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace glidemap::bench {

namespace {

constexpr double reportsPerSecond = 125;

BindingList bindingsFor(std::size_t count) {
    BindingList list;
    for (std::size_t number = 0; number < count; ++number) {
        const std::string app = "org.example.desktop.App" + std::to_string(number);
        list.push_back({.gesture = allGestureTypes[number % allGestureTypes.size()],
                        .action = KeyShortcut{124, 0x180000},
                        .scope = AppScope{app, "App"}});
    }
    return list;
}

void growBindings(std::size_t count) {
    const BindingList list = bindingsFor(count);
    const std::string text = encodeBindings(list);
    std::string pattern =
        (std::filesystem::temp_directory_path() / "glidemap-bench-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    BindingStore store([&] { return folder; });
    store.setBindings(list);
    const std::string last = "org.example.desktop.App" + std::to_string(count - 1);
    printLine("bindings, load", count, medianNanoseconds([&] {
                  const BindingStore loaded([&] { return folder; });
                  keep(loaded.bindings()->size());
              }));
    printLine("bindings, match", count,
              medianNanoseconds([&] { keep(store.match(list.back().gesture, last) != nullptr); }));
    printLine("bindings, save", count, medianNanoseconds([&] { store.save(); }));
    std::filesystem::remove_all(folder);
}

// Plays all frames of a session. The end of the session is measured separately.
void growSession(int fingers, double seconds) {
    const int length = static_cast<int>(seconds * reportsPerSecond);
    std::vector<TouchFrame> frames;
    for (const Report& report : movingFingers(fingers, length)) {
        frames.push_back(
            frameOf(report, 1 + static_cast<double>(frames.size()) / reportsPerSecond));
    }
    const TouchFrame lifted = frameOf({}, 1 + seconds);
    const VirtualTime time;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    std::vector<double> moving;
    std::vector<double> ending;
    for (int round = 0; round < 5; ++round) {
        moving.push_back(nanosecondsOf([&] {
            for (const TouchFrame& frame : frames) {
                recognizer->process(frame);
            }
        }));
        ending.push_back(nanosecondsOf([&] { recognizer->process(lifted); }));
    }
    const std::string of = std::to_string(fingers) + " fingers";
    printLine("frames of a session, " + of, frames.size(), median(moving));
    printLine("its end, " + of, frames.size(), median(ending));
}

void runSmallest() {
    printHeading();
    growBindings(3);
    growSession(1, 10);
}

void run() {
    printHeading();
    for (const std::size_t count : {3, 30, 300, 3'000, 30'000, 100'000}) {
        growBindings(count);
    }
    for (const double seconds : {10.0, 60.0, 600.0, 3600.0}) {
        growSession(3, seconds);
    }
    for (int fingers = 1; fingers <= 11; ++fingers) {
        growSession(fingers, 10);
    }
}

} // namespace

} // namespace glidemap::bench

int main(int count, char** /*arguments*/) {
    count > 1 ? glidemap::bench::runSmallest() : glidemap::bench::run();
    return 0;
}
