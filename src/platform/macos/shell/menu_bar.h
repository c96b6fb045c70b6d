// The menu bar of macOS, where a click on a status item opens its menu. It always exists.
//
// Thread:  the main thread.
// Owner:   the program.
// Errors:  none.
#pragma once

#include "app/status_bar.h"

namespace glidemap {

class MenuBar : public StatusBar {
public:
    Kind kind() override { return Kind::opensMenu; }
    Observable& changes() override { return observers; }

private:
    Observable observers; // never notified
};

} // namespace glidemap
