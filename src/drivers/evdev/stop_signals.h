// Releases the touchpads before one of the terminal's signals (SIGTSTP, SIGTTIN or SIGTTOU) stops
// the process. A stopped process would keep its grabs but forward nothing. Afterwards the signal
// has its default effect.
//
//   handler ─▶ a pipe ─▶ thread: gives back ─▶ the signal's default action … SIGCONT ─▶ grabs again
//
// SIGSTOP cannot be caught. If the program ignores one of the signals or handles it itself, the
// signal's disposition is not changed.
//
// Thread:  its own, which sleeps until such a signal arrives. It also works if other threads hang.
// Owner:   the process, once, because a handler may run until the process ends.
// Errors:  if the pipe or the thread cannot be created, the signals stop the process without
//          releasing the touchpads.
#pragma once

#include <functional>

namespace glidemap {

// Only the first call has an effect. Both callbacks run on the thread that is described above:
// `giveBack` before the process stops, `grabAgain` when it continues.
void watchStopSignals(std::function<void()> giveBack, std::function<void()> grabAgain);

} // namespace glidemap
