// Plays recordings, each in a run of its own with the same bindings, and prints what is recognised
// in them and what it does.
//
// Errors:  go to standard error as they happen; the other recordings are played all the same.
#pragma once

#include "bindings/binding_store.h"
#include "options.h"
#include "printer.h"
#include "replay_driver.h"
#include "statistics.h"

namespace glidemap::replay {

Status replayFiles(const Options& options, const BindingList& bindings, ReplayDriver& driver,
                   Printer& printer, Statistics& statistics);

} // namespace glidemap::replay
