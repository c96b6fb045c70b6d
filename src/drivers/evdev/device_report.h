// Extends the touch driver's C interface, in the evdev driver only. For troubleshooting, reports
// one line of text for each device that resembles a touchpad. If the driver does not use the
// device, the line contains the reason.
//
// Thread:  any, one call at a time; the driver delivers all lines before the function returns.
// Owner:   a line is valid only during the call that reports it.
// Errors:  reported as a line.
#pragma once

namespace glidemap::driver {

using ReportLine = void (*)(void* context, const char* line);
using ReportDevices = void (*)(ReportLine report, void* context);

inline constexpr const char* reportDevicesSymbol = "GlidemapReportDevices";

} // namespace glidemap::driver
