// Gives touchpads back before the signals that a terminal sends, SIGTSTP, SIGTTIN and SIGTTOU, stop
// the process: a stopped process would keep what it has grabbed and say nothing of it. Then the
// signal takes its course.
//
//   handler ─▶ a pipe ─▶ thread: gives back ─▶ the signal's default action … SIGCONT ─▶ goes on
//
// SIGSTOP cannot be caught. A signal that the program ignores or handles itself stays as it is.
//
// Thread:  its own, which sleeps until such a signal comes; the others may hang.
// Owner:   the process, one for its life: a handler may run as long as the process does.
// Errors:  without a pipe or a thread, the signals stop the process at once.
#pragma once

#include <functional>

namespace glidemap {

// Idempotent: a second call changes nothing. Both are called on the thread, `takeAgain` when the
// process goes on.
void watchStopSignals(std::function<void()> giveBack, std::function<void()> takeAgain);

} // namespace glidemap
