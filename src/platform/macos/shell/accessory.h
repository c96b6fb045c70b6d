// Makes the program an accessory: it has a status item, but no Dock icon and no menu bar.
//
// Thread:  the main thread.
// Errors:  none. If the system refuses a change, the state stays as it is.
#pragma once

namespace glidemap {

void becomeAccessory();

// Activates the program above all others, with keyboard focus. An accessory has no Dock icon to
// click, so it activates itself when the user opens its window.
void comeForward();

} // namespace glidemap
