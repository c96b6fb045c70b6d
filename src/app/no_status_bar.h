// The text of the notice for desktops without a status bar, shown once per run: how to reach the
// program without a status item.
//
// Errors:  none.
#pragma once

#include "app/alert.h"
#include "core/lang.h"

namespace glidemap {

AlertText noStatusBarText(const Lang& lang);

} // namespace glidemap
