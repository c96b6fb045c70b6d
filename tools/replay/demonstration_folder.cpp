#include "demonstration_folder.h"

#include "bindings/binding_json.h"
#include "bindings/binding_store.h"
#include "choreography/performance.h"
#include "recording/recording_writer.h"

#include <fstream>
#include <system_error>

namespace glidemap::replay {

namespace {

// Long enough for a person to see the gesture and to read its name.
constexpr double pause = 1.5;

void writeRecording(std::ostream& stream, std::uint64_t seed) {
    RecordingWriter writer(stream);
    writer.writeHead("a demonstration of every gesture");
    writer.write(Report{0, {}});
    double start = pause;
    for (const GestureType gesture : performableGestures()) {
        double end = start;
        for (const TimedReport& report : perform(gesture, seed)) {
            end = start + report.time;
            writer.write(Report{end, report.touches});
        }
        start = end + pause;
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
