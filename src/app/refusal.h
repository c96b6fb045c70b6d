// Why the program did not start, for whoever has started it by an icon and sees no terminal.
//
// Errors:  none.
#pragma once

#include "app/alert.h"
#include "core/lang.h"

namespace glidemap {

// It runs already, and the one that runs does not answer.
AlertText unansweredText(const Lang& lang);

// It cannot tell whether it runs already.
AlertText withoutLockText(const Lang& lang);

} // namespace glidemap
