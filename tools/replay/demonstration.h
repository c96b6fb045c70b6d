// Performs every gesture that contacts alone can make. demonstrate() sends the performances through
// one pipeline and prints the recognised gestures. writeDemonstration() writes files that
// demonstrate the program without a touchpad.
//
// Errors:  demonstrate() fails if a performance is not recognised as exactly its intended gesture;
//          writeDemonstration() returns an error message.
#pragma once

#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "statistics.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace glidemap::replay {

Status demonstrate(const Options& options, ReplayDriver& driver, Printer& printer,
                   Statistics& statistics);

// Creates FOLDER/recording.jsonl for the replay driver, and FOLDER/Glidemap/bindings.json. The
// bindings are disabled, so that no performance locks the screen. Keeps an existing bindings file.
std::optional<std::string> writeDemonstration(const std::filesystem::path& folder,
                                              std::uint64_t seed);

} // namespace glidemap::replay
