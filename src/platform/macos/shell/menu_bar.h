// The menu bar, where a click on a status item opens its menu. It is always there.
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
    Observable observers; // of nothing
};

} // namespace glidemap
