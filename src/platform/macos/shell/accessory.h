// Makes the program an accessory: it has a status item, but no Dock icon and no menu bar.
//
// Thread:  the main thread.
// Errors:  none. If the system refuses a change, nothing changes.
#pragma once

namespace glidemap {

void becomeAccessory();

// Activates the program in front of all others and gives it the keyboard focus. An accessory has no
// Dock icon to click, so it must activate itself when the user opens its window.
void comeForward();

} // namespace glidemap
