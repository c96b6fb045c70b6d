// The menu bar of macOS. It always exists, and a click on a status item opens the item's menu. If
// the system has a symbol with the icon's name, the item shows that symbol instead of our drawing.
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
    Observable observers; // never sends notifications, because kind() does not change
};

} // namespace glidemap
