// The menu bar of macOS, where a click on a status item opens its menu. It always exists, and shows
// the system's own symbol instead of our drawing if the system has that symbol.
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
