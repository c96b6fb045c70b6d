# The system that the program is built for.
#
#   linux         everything
#   macos         everything, on a Mac
#   macos-fakes   what needs no interface, and the macOS services against doubles of the system's own, on Linux: Mach-O
#                 cannot run there, but the services' real sources can, with the compiler and the C++ library of a Mac.
#                 On a Mac, too, with the real Foundation and Core Foundation below the doubles
#
# On a Mac GLIDEMAP_QT says whether the interface is built, or only the services with what they serve.
if(APPLE)
    set(native_home macos)
else()
    set(native_home linux)
endif()
set(GLIDEMAP_HOME ${native_home} CACHE STRING "The system that is built for: linux, macos or macos-fakes")
set_property(CACHE GLIDEMAP_HOME PROPERTY STRINGS linux macos macos-fakes)
if(NOT GLIDEMAP_HOME MATCHES "^(linux|macos|macos-fakes)$")
    message(FATAL_ERROR "GLIDEMAP_HOME is none: ${GLIDEMAP_HOME}")
endif()

option(GLIDEMAP_QT "Build what needs Qt; a Mac can leave it out" ON)
if(NOT GLIDEMAP_QT AND GLIDEMAP_HOME STREQUAL "linux")
    message(FATAL_ERROR "On Linux there is nothing to build without Qt")
endif()

# The thread sanitizer cannot judge a stock Qt, and the doubles do not reach as far.
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
