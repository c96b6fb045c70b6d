// Port: the desktop's status bar. The bar may appear long after login, and may disappear.
//
// Thread:  the main thread; never blocks.
// Owner:   the program creates one for the status item.
// Errors:  none.
#pragma once

#include "core/observable.h"

namespace glidemap {

class StatusBar {
public:
    enum class Kind {
        none,
        drawsItself, // the bar loads the icon by its name and may read the menu at any time
        embeds,      // the bar only provides an area in which the item draws itself
        opensMenu,   // a click opens the menu, and the bar recolours the icon
    };

    // Whether the icon shows that gestures are switched on.
    enum class Look { on, off };

    StatusBar() = default;
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;
    virtual ~StatusBar() = default;

    virtual Kind kind() = 0;

    // Notifies observers when kind() changes.
    virtual Observable& changes() = 0;

    // Called after the item's icon has been set. A bar that has its own drawing of the icon can
    // replace it here.
    virtual void itemWasDrawn(Look /*look*/) {}
};

} // namespace glidemap
