# The target system.
#
#   linux         everything
#   macos         everything, on a Mac
#   macos-fakes   on Linux: the code without an interface, and the macOS services with test doubles of the system. Linux
#                 cannot run Mach-O, but a Mac's compiler (Clang) and C++ library (libc++) can build the services for Linux.
#                 On a Mac: the same, but the test doubles use the real Foundation and Core Foundation.
#
# On a Mac, GLIDEMAP_QT=OFF builds only the services and their ports, without the interface.
if(APPLE)
    set(native_home macos)
else()
    set(native_home linux)
endif()
set(GLIDEMAP_HOME ${native_home} CACHE STRING "The target system: linux, macos or macos-fakes")
set_property(CACHE GLIDEMAP_HOME PROPERTY STRINGS linux macos macos-fakes)
if(NOT GLIDEMAP_HOME MATCHES "^(linux|macos|macos-fakes)$")
    message(FATAL_ERROR "GLIDEMAP_HOME is invalid: ${GLIDEMAP_HOME}. Use linux, macos or macos-fakes.")
endif()

option(GLIDEMAP_QT "Build the parts that need Qt; OFF is supported on a Mac only" ON)
if(NOT GLIDEMAP_QT AND GLIDEMAP_HOME STREQUAL "linux")
    message(FATAL_ERROR "GLIDEMAP_QT=OFF is not supported on Linux")
endif()

# Thread-sanitizer builds omit Qt, because a stock Qt causes false race reports. Builds with the doubles of macOS omit Qt,
# because the doubles do not cover the interface.
if(NOT GLIDEMAP_QT OR GLIDEMAP_SANITIZERS STREQUAL "thread" OR GLIDEMAP_HOME STREQUAL "macos-fakes")
    set(GLIDEMAP_WITH_QT OFF)
else()
    set(GLIDEMAP_WITH_QT ON)
endif()

if(GLIDEMAP_HOME MATCHES "^macos")
    if(NOT CMAKE_OBJCXX_COMPILER)
        set(CMAKE_OBJCXX_COMPILER ${CMAKE_CXX_COMPILER})
    endif()
    enable_language(OBJCXX)
    set(CMAKE_OBJCXX_STANDARD 20)
    set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
    set(CMAKE_OBJCXX_EXTENSIONS OFF)
endif()
