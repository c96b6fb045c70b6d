// What the YAML of `libinput record` says about the first touchpad in it.
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
// Read as a stream of YAML events, never as a tree: aliases are refused, nesting is bounded, and
// everything else in the file costs no memory.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "recording/line_reader.h"
#include "recording/pad_capabilities.h"
#include "recording/recording_reader.h"

#include <optional>
#include <vector>

namespace glidemap {

struct LibinputRecordFile {
    std::optional<PadCapabilities> touchpad; // the first one, or none
    std::vector<InputEvent> events;          // of the touchpad
    std::optional<RecordingError> error;     // ended the file; what stands before it is good
};

LibinputRecordFile parseLibinputRecord(LineReader& lines);

} // namespace glidemap
