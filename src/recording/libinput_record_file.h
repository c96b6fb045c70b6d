// Parses the first touchpad in the YAML of `libinput record`.
//
//   version: 1
//   devices:
//   - evdev:
//       name: "…"
//       absinfo:
//         47: [minimum, maximum, fuzz, flat, resolution]
//       properties: [0, 2]
//     udev:
//       properties:
//       - ID_INPUT_TOUCHPAD=1
//     events:
//     - evdev:
//       - [seconds, microseconds, type, code, value]
//
// The YAML is parsed as a stream of events, without building a tree: aliases are rejected, nesting
// is limited, and ignored content uses no memory.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "recording/line_reader.h"
#include "recording/pad_capabilities.h"
#include "recording/recording_reader.h"

#include <optional>
#include <vector>

namespace glidemap {

struct LibinputRecordFile {
    std::optional<PadCapabilities> touchpad; // the first touchpad, or nullopt
    std::vector<InputEvent> events;          // the touchpad's events
    // The error that ended parsing. All data before the error is valid.
    std::optional<RecordingError> error;
};

LibinputRecordFile parseLibinputRecord(LineReader& lines);

} // namespace glidemap
