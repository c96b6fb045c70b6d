// What is said, once in a run, where the desktop has no place for the status item: how the program
// is reached without it.
//
// Errors:  none.
#pragma once

#include "app/alert.h"
#include "core/lang.h"

namespace glidemap {

AlertText noStatusBarText(const Lang& lang);

} // namespace glidemap
