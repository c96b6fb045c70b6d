// Performs every gesture that contacts alone can make, in sequence through one pipeline, and prints
// the recognised gestures.
//
// Errors:  fails if a performance is not recognised as exactly its intended gesture.
#pragma once

#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "statistics.h"

namespace glidemap::replay {

Status demonstrate(const Options& options, ReplayDriver& driver, Printer& printer,
                   Statistics& statistics);

} // namespace glidemap::replay
