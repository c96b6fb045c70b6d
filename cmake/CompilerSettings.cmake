# What every target is compiled with, and where the results land.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON) # the touch drivers are loadable libraries
set(CMAKE_CXX_VISIBILITY_PRESET hidden) # a driver exports its C symbols and nothing else
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# Same layout as an installed tree: a program finds the drivers at ../lib/glidemap from its own folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(GLIDEMAP_DRIVER_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/glidemap)

# ccache takes precompiled headers only if it may believe that macros and times in them do not matter; none does here.
find_program(CCACHE ccache)
if(CCACHE)
    set(launcher ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${launcher})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    else()
        add_compile_options("$<$<COMPILE_LANGUAGE:CXX,OBJCXX>:SHELL:-Xclang -fno-pch-timestamp>")
    endif()
endif()

# Enough for a stack with lines and for a profile; variables take the build a third longer.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
set(CMAKE_C_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

# The limits of gestures are compared in plain double arithmetic on every processor, also where it could multiply and add
# in one step.
add_compile_options(-ffp-contract=off)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<COMPILE_LANGUAGE:CXX,OBJCXX>:-Wnon-virtual-dtor>)
# A Mac gets its toolkit from a package manager that always has the newest; what that advises against is all that the
# oldest one supported has.
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

# Programs that read devices are worth hardening. A sanitizer watches more than this does, and gets in its way.
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

# GLib asks for it; with it everywhere, precompiled headers serve what uses GLib, too.
if(NOT APPLE)
    add_compile_options(-pthread)
endif()

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
