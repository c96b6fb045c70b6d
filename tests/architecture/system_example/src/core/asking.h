// Conditions that the check must report, and one that it must ignore.
#pragma once

#ifdef __APPLE__
#define GLIDEMAP_EXAMPLE_APPLE 1
#endif
#if defined(GLIDEMAP_EXAMPLE_APPLE) && !defined(Q_OS_MACOS)
#endif
#ifdef MY__linux__COUNT
#endif
