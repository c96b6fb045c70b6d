// Plays recordings, each in its own run with the same bindings, and prints the recognised gestures
// and their actions.
//
// Errors:  printed to standard error when they occur; the remaining recordings are still played.
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
