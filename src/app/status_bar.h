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
        embeds,      // the bar only provides an area in which Qt draws the icon
        opensMenu,   // a click opens the menu, and the bar recolours the icon
    };

    // The state that the icon shows: gestures are switched on or off.
    enum class Look { on, off };

    StatusBar() = default;
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;
    virtual ~StatusBar() = default;

    virtual Kind kind() = 0;

    // Notifies observers when kind() changes.
    virtual Observable& changes() = 0;

    // Called after Qt has set the item's icon. An implementation can replace the icon here.
    virtual void itemWasDrawn(Look /*look*/) {}
};

} // namespace glidemap
