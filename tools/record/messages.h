// The longer texts that glidemap-record prints.
#pragma once

#include <cstdint>
#include <string>

namespace glidemap::record {

extern const char* const usageText;
extern const char* const helpText;

// Returns a message that says why nothing can be recorded, and how to change that.
std::string nothingToRecord(std::int32_t unreadableTouchpads);

} // namespace glidemap::record
