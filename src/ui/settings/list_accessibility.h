// Tells programs that read the window to the user that the bindings are a list with items.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

namespace glidemap {

// Once for the process; more often does nothing.
void describeListsToAssistance();

} // namespace glidemap
