// One more function of the evdev driver's C interface: a line of text for each device that is like a
// touchpad, with the reason where it is not used. For people who look for a fault.
//
// Thread:  any; the lines come before the function returns.
// Owner:   a line is valid during its call.
// Errors:  a line that says so.
#pragma once

namespace glidemap::driver {

using ReportLine = void (*)(void* context, const char* line);
using ReportDevices = void (*)(ReportLine report, void* context);

inline constexpr const char* reportDevicesSymbol = "GlidemapReportDevices";

} // namespace glidemap::driver
