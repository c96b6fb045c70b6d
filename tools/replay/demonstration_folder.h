// Writes the files for a demonstration of the program without a touchpad: a recording of every
// gesture that contacts alone can make, for the replay driver, and harmless bindings, so that no
// performance locks the screen.
//
// Errors:  returns an error message.
#pragma once

#include "options.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap::replay {

// Creates FOLDER/recording.jsonl and FOLDER/Glidemap/bindings.json. Keeps existing bindings.
std::optional<std::string> writeDemonstration(const std::filesystem::path& folder,
                                              std::uint64_t seed);

} // namespace glidemap::replay
