// Parses single lines of evemu's text format.
//
//   N: name
//   I: bus vendor product version
//   P: property bits, bytes in hexadecimal
//   B: event type, bytes of the codes that the device can send
//   A: axis min max fuzz flat [resolution]   (axis in hexadecimal, the rest decimal)
//   E: seconds.microseconds type code value  (type and code in hexadecimal, value decimal)
//
// Everything after a `#` is a comment, except in a name. LED (L:) and switch (S:) lines do not
// describe contacts and are ignored.
//
// Errors:  returned as a human-readable message, without file and line.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "recording/pad_capabilities.h"

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Returns whether the line starts with a letter of evemu's format and a colon.
bool isEvemuLine(std::string_view line);

// Returns whether the line is in evemu's format and describes the device, not an event.
bool isEvemuDescription(std::string_view line);

class EvemuDescription {
public:
    // Parses an N, P or A line; ignores all other lines. Returns an error message, or nullopt on
    // success.
    std::optional<std::string> add(std::string_view line);

    const PadCapabilities& device() const { return _device; }

private:
    std::optional<std::string> addProperties(std::string_view bytes);
    std::optional<std::string> addAxis(std::string_view fields);

    PadCapabilities _device;
    unsigned propertyBits = 0; // number of bits in all P lines so far
};

// Parses an `E:` line. Returns an error message, or nullopt on success.
std::optional<std::string> parseEvemuEvent(std::string_view line, InputEvent& event);

} // namespace glidemap
