# Fails if a source below SOURCE_DIR asks which system it is compiled on, and names each place. Two folders may know that,
# src/platform and src/drivers; the tests of the macOS services stand on a Mac as on Linux, and may ask, too, as may the headers that stand for a Mac. Everything
# else is the same on every system, and the build files choose what belongs to one.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)
set(systems "__APPLE__|__MACH__|__linux__|__linux|__gnu_linux__|__unix__|_WIN32|_WIN64|__FreeBSD__|Q_OS_[A-Z0-9_]+|TARGET_OS_[A-Z]+")
fail_if_found("(^|[^A-Za-z0-9_])(${systems})([^A-Za-z0-9_]|$)"
    "^(src/platform|src/drivers|tests/macos|tests/darwin|tests/architecture/system_example)/"
    "a source asks for its system outside src/platform and src/drivers")
