// Writes what the program needs to be shown without a touchpad: a recording of every gesture that
// contacts alone can make, for the replay driver, and bindings that do nothing, so that nobody's
// screen is locked by a performance.
//
// Errors:  what cannot be written, in words.
#pragma once

#include "options.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap::replay {

// Makes FOLDER/recording.jsonl and FOLDER/Glidemap/bindings.json. Bindings that are there stay.
std::optional<std::string> writeDemonstration(const std::filesystem::path& folder,
                                              std::uint64_t seed);

} // namespace glidemap::replay
