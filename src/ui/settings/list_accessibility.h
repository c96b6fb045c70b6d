// Exposes the bindings to assistive technology as a list with items.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

namespace glidemap {

// Idempotent.
void installListAccessibility();

} // namespace glidemap
