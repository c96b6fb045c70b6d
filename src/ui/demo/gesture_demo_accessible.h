// Exposes a demonstration to assistive technology as an animation instead of an unnamed pane.
//
// Thread:  the main thread.
#pragma once

namespace glidemap::demo {

// Idempotent.
void installDemoAccessibility();

} // namespace glidemap::demo
