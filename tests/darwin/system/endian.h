// Exists only for musl's sys/types.h. macOS has no such header, so including it directly in a
// source is an error.
#pragma once

#if __INCLUDE_LEVEL__ < 2
#error "A Mac has no endian.h"
#endif
