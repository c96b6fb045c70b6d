// The menu bar, where a click on a status item opens its menu. It is always there, and shows the system's own symbol in place of
// our drawing where the system has it.
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
    void itemWasDrawn(Look look) override;

private:
    Observable observers; // never notified
};

} // namespace glidemap
