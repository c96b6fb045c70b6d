// The availability macros of the macOS headers.
#pragma once

#define API_AVAILABLE(system) GLIDEMAP_AVAILABLE_##system
#define GLIDEMAP_AVAILABLE_macos(version) __attribute__((availability(macos, introduced = version)))
