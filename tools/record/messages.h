// The longer texts that glidemap-record prints.
#pragma once

#include <cstdint>
#include <string>

namespace glidemap::record {

extern const char* const usageText;
extern const char* const helpText;

// Why there is nothing to record, and how to fix it.
std::string nothingToRecord(std::int32_t unreadableTouchpads);

} // namespace glidemap::record
