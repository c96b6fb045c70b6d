// Port: the area of the desktop that shows status items. It may appear late after login, and may
// disappear.
//
// Thread:  the main thread; never waits.
// Owner:   the program creates one for the status item.
// Errors:  none.
#pragma once

#include "core/observable.h"

namespace glidemap {

class StatusBar {
public:
    enum class Kind {
        none,
        drawsItself, // it loads the icon by name and may read the menu at any time
        embeds,      // it only gives the item an area to draw in
        opensMenu,   // a click opens the menu, and the bar recolours the icon
    };

    // Whether the item shows gestures as on.
    enum class Look { on, off };

    StatusBar() = default;
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;
    virtual ~StatusBar() = default;

    virtual Kind kind() = 0;

    // Notifies observers when kind() changes.
    virtual Observable& changes() = 0;

    // Called each time the item's icon was set. A bar that has a better drawing can replace the
    // icon here.
    virtual void itemWasDrawn(Look /*look*/) {}
};

} // namespace glidemap
