// musl's sys/types.h takes this one. A Mac has none, so a source that includes it by itself does not compile.
#pragma once

#if __INCLUDE_LEVEL__ < 2
#error "A Mac has no endian.h"
#endif
