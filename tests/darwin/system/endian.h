// For musl's sys/types.h. A Mac has no such header, so a source that includes it directly does not
// compile.
#pragma once

#if __INCLUDE_LEVEL__ < 2
#error "A Mac has no endian.h"
#endif
