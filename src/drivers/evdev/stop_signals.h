// Releases the touchpads before one of the terminal's signals SIGTSTP, SIGTTIN and SIGTTOU stops
// the process. A stopped process would keep its grabs but forward nothing. Afterwards the signal
// has its default effect.
//
//   handler ─▶ a pipe ─▶ thread: gives back ─▶ the signal's default action … SIGCONT ─▶ goes on
//
// SIGSTOP cannot be caught. A signal that the program ignores or handles itself stays as it is.
//
// Thread:  its own, which sleeps until such a signal arrives; the other threads may hang.
// Owner:   the process, once: a handler may run until the process ends.
// Errors:  if the pipe or the thread fails, the signals stop the process at once.
#pragma once

#include <functional>

namespace glidemap {

// Idempotent. Both callbacks run on the thread, `grabAgain` when the process continues.
void watchStopSignals(std::function<void()> giveBack, std::function<void()> grabAgain);

} // namespace glidemap
