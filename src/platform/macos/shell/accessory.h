// What the program is to the system beside its windows: no place in the Dock and no menu bar while
// another application is in front, only a status item.
//
// Thread:  the main thread.
// Errors:  none. What the system refuses stays as it is.
#pragma once

namespace glidemap {

void becomeAccessory();

// Brings the program before all others, with the keyboard. An accessory is not in the Dock to be
// chosen there, so it comes by itself when the user asks for its window.
void comeForward();

} // namespace glidemap
