# Compiler options and output folders of every target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON) # the touch drivers are loadable libraries
set(CMAKE_CXX_VISIBILITY_PRESET hidden) # a driver exports only its C symbols
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# The layout of an installed tree: a program finds the drivers in ../lib/glidemap, relative to itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(GLIDEMAP_DRIVER_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/glidemap)

# ccache supports precompiled headers only with this setting. It then ignores macros and times in precompiled headers,
# which do not affect this build.
#
# If ccache is installed, builds use it. A build folder keeps the choice of its first configuration. Otherwise everything
# in it would be compiled again as soon as ccache is installed.
find_program(CCACHE ccache)
set(GLIDEMAP_CCACHE "${CCACHE}" CACHE STRING "the compiler cache of this build folder; NOTFOUND for none")
if(GLIDEMAP_CCACHE)
    set(launcher ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${GLIDEMAP_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${launcher})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    else()
        add_compile_options("$<$<COMPILE_LANGUAGE:CXX,OBJCXX>:SHELL:-Xclang -fno-pch-timestamp>")
    endif()
endif()

# -g1 is enough for profiles and for stack traces with line numbers. Debug information about variables would make the
# build a third longer.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
set(CMAKE_C_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

# Comparisons with gesture limits must give the same result on every processor, so fused multiply-add is disabled.
add_compile_options(-ffp-contract=off)

# A constructor's parameter may have the name of the member that it sets. Clang's -Wshadow allows this, but GCC's does
# not. So builds with GCC check only whether local names hide each other, and builds with Clang also check members'
# names.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(shadow_warning -Wshadow=local)
else()
    set(shadow_warning -Wshadow)
endif()
add_compile_options(-Wall -Wextra -Wpedantic ${shadow_warning} -Wconversion
                    $<$<COMPILE_LANGUAGE:CXX,OBJCXX>:-Wnon-virtual-dtor>)
# Silences deprecations newer than the oldest supported Qt. A Mac's package manager always has the newest Qt, and the
# oldest supported Qt lacks the replacements.
if(APPLE)
    add_compile_definitions(QT_WARN_DEPRECATED_UP_TO=0x060400)
endif()
if(GLIDEMAP_WERROR)
    add_compile_options(-Werror)
endif()

if(GLIDEMAP_SANITIZERS)
    add_compile_options(-fsanitize=${GLIDEMAP_SANITIZERS} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${GLIDEMAP_SANITIZERS})
endif()

# Hardens the programs, because they read devices. Sanitizers check more and conflict with these options.
include(CheckPIESupported)
check_pie_supported()
if(NOT GLIDEMAP_SANITIZERS)
    add_compile_options($<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
                        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>
                        $<$<NOT:$<CONFIG:Debug>>:-fstack-protector-strong>)
    if(NOT APPLE)
        add_link_options(-Wl,-z,relro -Wl,-z,now)
    endif()
endif()

# GLib requires -pthread. With this option everywhere, targets with and without GLib can share precompiled headers.
if(NOT APPLE)
    add_compile_options(-pthread)
endif()

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
