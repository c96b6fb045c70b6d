// Performs every gesture that contacts alone can make, one after the other through one pipeline,
// and prints what was recognised in each.
//
// Errors:  a performance that comes out as anything but the one gesture it was meant to be.
#pragma once

#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "statistics.h"

namespace glidemap::replay {

Status demonstrate(const Options& options, ReplayDriver& driver, Printer& printer,
                   Statistics& statistics);

} // namespace glidemap::replay
