// The Apple events that a test sends to the program.
#pragma once

namespace glidemap::doubles {

// As when the user opens the program again. Answers whether anybody has handled it.
bool sendReopen();

} // namespace glidemap::doubles
