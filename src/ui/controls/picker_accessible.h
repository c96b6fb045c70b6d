// Exposes pickers to assistive technology as combo boxes whose choice is also a text. Qt 6.4 gives
// them a name only, which Orca replaces by the label's, so that the choice is never read.
//
// Thread:  the main thread.
#pragma once

namespace glidemap {

// Idempotent.
void exposePickersWithTheirText();

} // namespace glidemap
