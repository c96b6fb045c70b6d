// The lines of evemu's text format, one by one.
//
//   N: name                                 P: property bits, bytes in hexadecimal
//   I: bus vendor product version           B: event type, bytes of the codes that the device can
//   send A: axis min max fuzz flat [resolution]  (the axis in hexadecimal, the rest decimal) E:
//   seconds.microseconds type code value (type and code in hexadecimal, the value decimal)
//
// Anything after a `#` is a comment, except in a name. LED (L:) and switch (S:) lines tell nothing
// of contacts.
//
// Errors:  answered as a message for people, without file and line.
#pragma once

#include "drivers/contact/contact_assembler.h"
#include "recording/pad_capabilities.h"

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Whether the line is one of evemu's, by its letter and colon.
bool isEvemuLine(std::string_view line);

// Whether the line is evemu's and tells of the device rather than of an event.
bool isEvemuDescription(std::string_view line);

class EvemuDescription {
public:
    // Reads one line of a description; other lines are ignored. Answers what is wrong, or nothing.
    std::optional<std::string> add(std::string_view line);

    const PadCapabilities& device() const { return _device; }

private:
    std::optional<std::string> addProperties(std::string_view bytes);
    std::optional<std::string> addAxis(std::string_view fields);

    PadCapabilities _device;
    unsigned propertyBits = 0; // told so far, by this and earlier lines
};

// Reads an `E:` line. Answers what is wrong, or nothing.
std::optional<std::string> parseEvemuEvent(std::string_view line, InputEvent& event);

} // namespace glidemap
