// Tells assistive technology that a demonstration is an animation; a plain widget would be an
// unnamed pane to it.
//
// Thread:  the main thread.
#pragma once

namespace glidemap::demo {

// From now on; again is harmless.
void announceDemosAsAnimations();

} // namespace glidemap::demo
