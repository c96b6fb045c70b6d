// The alerts that explain why the program did not start, for users who start it by its icon and see
// no terminal.
//
// Errors:  none.
#pragma once

#include "app/alert.h"
#include "core/lang.h"

namespace glidemap {

// Another instance is running, and does not respond.
AlertText unansweredText(const Lang& lang);

// The lock file cannot be opened, so a running instance cannot be detected.
AlertText withoutLockText(const Lang& lang);

} // namespace glidemap
