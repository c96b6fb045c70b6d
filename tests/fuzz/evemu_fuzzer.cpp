// Reads arbitrary bytes as an evemu recording.
#include "recording/format_readers.h"
#include "recording/line_reader.h"
#include "recording_invariants.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    glidemap::fuzz::readAndCheck(*glidemap::readEvemu(glidemap::LineReader(stream, "input"), {}));
    return 0;
}
