// The same conditions where they are allowed.
#pragma once

#ifdef __linux__
#endif
