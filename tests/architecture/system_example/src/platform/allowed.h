// The same where it may be.
#pragma once

#ifdef __linux__
#endif
