# Fails if a source below SOURCE_DIR contains a condition on the system, and lists each match. src/platform and src/drivers are
# exempt. So are the tests of the macOS services, which run on a Mac and on Linux, and the headers that replace a Mac's. All
# other sources are portable, and the build files select the sources for one system.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)
set(systems "__APPLE__|__MACH__|__linux__|__linux|__gnu_linux__|__unix__|_WIN32|_WIN64|__FreeBSD__|Q_OS_[A-Z0-9_]+|TARGET_OS_[A-Z]+")
fail_if_found("(^|[^A-Za-z0-9_])(${systems})([^A-Za-z0-9_]|$)"
    "^(src/platform|src/drivers|tests/platform/macos|tests/darwin|tests/architecture/system_example)/"
    "a source asks for its system outside src/platform and src/drivers")
