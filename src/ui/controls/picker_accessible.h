// Exposes pickers to assistive technology as combo boxes whose choice is also available as text. Qt
// 6.4 exposes the choice only as the accessible name. Orca reads the label instead of that name,
// and would never read the choice.
//
// Thread:  the main thread.
#pragma once

namespace glidemap {

// Installs the accessibility factory for pickers. Idempotent.
void exposePickersWithTheirText();

} // namespace glidemap
