// match_bench [Google Benchmark's options]: measures the cost of finding a gesture's binding among
// a thousand, and the cost of reading and writing a thousand bindings. The action of every gesture
// waits until its binding has been found.
#include "bindings/binding_json.h"
#include "bindings/binding_store.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace glidemap::bench {

namespace {

constexpr int bindingCount = 1'000;
constexpr GestureType gesture = GestureType::threeFingerSwipeLeft;

// Returns an identifier of realistic length. All identifiers have the same prefix.
std::string bundleID(int number) {
    return "org.example.desktop.applications.App" + std::to_string(number);
}

GestureBinding binding(GestureType bound, BindingScope scope) {
    return {.gesture = bound, .action = KeyShortcut{124, 0x180000}, .scope = std::move(scope)};
}

// Binds every gesture, globally and for many applications.
BindingList mixed() {
    BindingList list;
    for (int number = 0; number < bindingCount; ++number) {
        const auto place = static_cast<std::size_t>(number) % allGestureTypes.size();
        const int app = number / static_cast<int>(allGestureTypes.size());
        list.push_back(binding(allGestureTypes[place],
                               app == 0 ? BindingScope(GlobalScope{})
                                        : BindingScope(AppScope{bundleID(app), "App"})));
    }
    return list;
}

// The worst case: one gesture with a thousand bindings, of which the global one is the last.
BindingList oneGesture() {
    BindingList list;
    for (int number = 1; number < bindingCount; ++number) {
        list.push_back(binding(gesture, AppScope{bundleID(number), "App"}));
    }
    list.push_back(binding(gesture, GlobalScope{}));
    return list;
}

// The folder is removed at the end of the benchmark.
class StoreInTemporaryFolder {
public:
    explicit StoreInTemporaryFolder(BindingList list) { store.setBindings(std::move(list)); }
    StoreInTemporaryFolder(const StoreInTemporaryFolder&) = delete;
    StoreInTemporaryFolder& operator=(const StoreInTemporaryFolder&) = delete;
    ~StoreInTemporaryFolder() { std::filesystem::remove_all(folder); }

    static std::filesystem::path newFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "glidemap-bench-XXXXXX").string();
        return mkdtemp(pattern.data());
    }

    std::filesystem::path folder = newFolder();
    BindingStore store{[this] {
        return folder;
    }};
};

void match(benchmark::State& state, BindingList (*list)(), const char* frontmost) {
    const StoreInTemporaryFolder with(list());
    const std::string app = frontmost;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(with.store.match(gesture, app));
    }
}

BENCHMARK_CAPTURE(match, mixed_for_the_application, mixed,
                  "org.example.desktop.applications.App20");
BENCHMARK_CAPTURE(match, mixed_global, mixed, "org.example.desktop.applications.Other");
BENCHMARK_CAPTURE(match, one_gesture_for_the_last_application, oneGesture,
                  "org.example.desktop.applications.App999");
BENCHMARK_CAPTURE(match, one_gesture_global, oneGesture,
                  "org.example.desktop.applications.App1000");

void doubleTapBindingExists(benchmark::State& state) {
    const StoreInTemporaryFolder with(mixed());
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(with.store.doubleTapBindingExists(2));
    }
}

BENCHMARK(doubleTapBindingExists);

// The reference: a linear search of the list.
void plainSearch(benchmark::State& state) {
    const BindingList list = oneGesture();
    const std::string app = bundleID(bindingCount);
    for ([[maybe_unused]] auto _ : state) {
        const GestureBinding* found = nullptr;
        for (const GestureBinding& candidate : list) {
            const auto* const scope = std::get_if<AppScope>(&candidate.scope);
            if (candidate.enabled && candidate.gesture == gesture &&
                (scope == nullptr || scope->bundleID == app)) {
                found = &candidate;
            }
        }
        benchmark::DoNotOptimize(found);
    }
}

BENCHMARK(plainSearch);

void decode(benchmark::State& state) {
    const std::string text = encodeBindings(mixed());
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(decodeBindings(text));
    }
}

BENCHMARK(decode);

void encode(benchmark::State& state) {
    const BindingList list = mixed();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(encodeBindings(list));
    }
}

BENCHMARK(encode);

// The measured time includes writing to the disk.
void assignAndSave(benchmark::State& state) {
    const BindingList list = mixed();
    StoreInTemporaryFolder with(list);
    for ([[maybe_unused]] auto _ : state) {
        with.store.setBindings(list);
    }
}

BENCHMARK(assignAndSave)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace glidemap::bench
