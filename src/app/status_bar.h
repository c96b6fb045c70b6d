// Port: the place on the desktop where programs have their status items. It may come late, when the
// user logs in, and it may go.
//
// Thread:  the main thread; never waits.
// Owner:   the program makes one for the status item.
// Errors:  none.
#pragma once

#include "core/observable.h"

namespace glidemap {

class StatusBar {
public:
    enum class Kind {
        none,
        drawsItself, // it knows the item's icon by name and reads its menu when it likes
        embeds,      // it only gives the item a place in which to draw
        opensMenu,   // a click on the item opens its menu, and it draws the icon as the bar's own
    };

    // What the item tells: gestures are on or off.
    enum class Look { on, off };

    StatusBar() = default;
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;
    virtual ~StatusBar() = default;

    virtual Kind kind() = 0;

    // Of the kind.
    virtual Observable& changes() = 0;

    // Called each time the item was given its icon, for a bar that has a better drawing of its own.
    virtual void itemWasDrawn(Look /*look*/) {}
};

} // namespace glidemap
