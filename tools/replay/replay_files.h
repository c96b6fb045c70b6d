// Plays recordings, each in a run of its own, and prints what is recognised in them.
//
// Errors:  go to standard error as they happen; the other recordings are played all the same.
#pragma once

#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "statistics.h"

namespace glidemap::replay {

Status replayFiles(const Options& options, ReplayDriver& driver, Printer& printer,
                   Statistics& statistics);

} // namespace glidemap::replay
