// Opens arbitrary bytes as a recording of unknown format.
#include "recording/recording_reader.h"
#include "recording_invariants.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    glidemap::fuzz::readAndCheck(*glidemap::openRecording(stream, "input"));
    return 0;
}
