// What the check for conditions on the system must find, and what it must leave alone.
#pragma once

#ifdef __APPLE__
#define GLIDEMAP_EXAMPLE_APPLE 1
#endif
#if defined(GLIDEMAP_EXAMPLE_APPLE) && !defined(Q_OS_MACOS)
#endif
#ifdef MY__linux__COUNT
#endif
