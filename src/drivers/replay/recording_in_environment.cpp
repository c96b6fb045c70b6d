#include "drivers/replay/recording_in_environment.h"

#include "drivers/replay/playing_device.h"
#include "recording/recording_reader.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap::replay {

namespace {

void complain(const std::string& problem) {
    std::fprintf(stderr, "Glidemap's replay driver: %s\n", problem.c_str());
}

std::optional<std::vector<Record>> readWhole(const char* path) {
    const auto reader = openRecordingFile(path, path);
    std::vector<Record> records;
    Record record;
    while (reader->next(record)) {
        records.push_back(record);
    }
    if (reader->error()) {
        complain(text(*reader->error()));
        return std::nullopt;
    }
    return records;
}

} // namespace

std::unique_ptr<ReplayDevice> deviceFromEnvironment() {
    const char* path = std::getenv("GLIDEMAP_RECORDING");
    if (path == nullptr || *path == '\0') {
        complain("GLIDEMAP_RECORDING does not name a recording");
        return nullptr;
    }
    auto records = readWhole(path);
    if (!records) {
        return nullptr;
    }
    const char* loop = std::getenv("GLIDEMAP_RECORDING_LOOP");
    const bool loops = loop != nullptr && std::string_view(loop) == "1";
    return std::make_unique<PlayingDevice>(std::move(*records),
                                           loops ? Repetition::forever : Repetition::once);
}

} // namespace glidemap::replay
