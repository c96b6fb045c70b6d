# The toolchain file for builds on Linux that compile and link for a Mac. Clang can write Mach-O on every system. No
# file comes from Apple: our own headers and those of musl replace the C library's headers, the test doubles provide the
# frameworks' headers, and our lists of symbols replace the libraries (tests/darwin). The results cannot run on Linux.
#
# GLIDEMAP_DARWIN_ARCHITECTURE is arm64 or x86_64.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GLIDEMAP_DARWIN_ARCHITECTURE)
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${GLIDEMAP_DARWIN_ARCHITECTURE})
# By default, CMake tests the compiler by linking a C program, which is impossible here.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

include(${CMAKE_CURRENT_LIST_DIR}/NewestClang.cmake)
get_filename_component(clang_tools ${CMAKE_CXX_COMPILER} DIRECTORY)
set(CMAKE_OBJCXX_COMPILER ${CMAKE_CXX_COMPILER})
foreach(language C CXX OBJCXX)
    set(CMAKE_${language}_COMPILER_TARGET ${GLIDEMAP_DARWIN_ARCHITECTURE}-apple-macos13.0)
endforeach()
foreach(tool AR RANLIB NM INSTALL_NAME_TOOL LIPO OTOOL)
    string(TOLOWER ${tool} name)
    string(REPLACE _ - name ${name})
    set(CMAKE_${tool} ${clang_tools}/llvm-${name} CACHE FILEPATH "Clang's own, for Mach-O")
endforeach()

set(darwin ${CMAKE_CURRENT_LIST_DIR}/../tests/darwin)
get_filename_component(darwin ${darwin} ABSOLUTE)
set(doubles ${darwin}/../platform/macos/doubles)
get_filename_component(doubles ${doubles} ABSOLUTE)

# Creates symbolic links to musl's headers that macOS also has. The compiler finds only the headers in this list.
set(headers ${CMAKE_BINARY_DIR}/darwin-headers)
file(GLOB musl /usr/include/*-linux-musl)
list(GET musl 0 musl)
file(STRINGS ${darwin}/system/headers-of-the-c-library shared REGEX "^[^#]")
foreach(header IN LISTS shared)
    get_filename_component(folder ${headers}/${header} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${musl}/${header} ${headers}/${header} SYMBOLIC)
endforeach()
# nlohmann_json is a header-only library. The include folder of its package would also expose all other headers of
# Linux.
file(CREATE_LINK /usr/include/nlohmann ${headers}/nlohmann SYMBOLIC)
set(nlohmann_json_DIR ${darwin} CACHE PATH "The folder of the package file of nlohmann_json")
# The distribution's libc++ configuration, with availability annotations enabled.
file(READ ${clang_tools}/../include/c++/v1/__config_site site)
string(REPLACE "#define _LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS" "" site "${site}")
string(REPLACE "#define _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS 0"
               "#define _LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS 1" site "${site}")
file(CONFIGURE OUTPUT ${headers}/c++/__config_site CONTENT "${site}" @ONLY)

string(JOIN " " includes
    -nostdlibinc -nostdinc++ -fblocks
    -isystem ${headers}/c++ -isystem ${clang_tools}/../include/c++/v1
    -isystem ${darwin}/system -isystem ${headers} -isystem ${doubles}/both -isystem ${doubles}/linux)
foreach(language C CXX OBJCXX)
    set(CMAKE_${language}_FLAGS_INIT "${includes} -Wunguarded-availability-new")
endforeach()
string(REPLACE "-isystem ${headers}/c++ -isystem ${clang_tools}/../include/c++/v1" "" c_includes "${includes}")
set(CMAKE_C_FLAGS_INIT "${c_includes}")

foreach(kind EXE MODULE SHARED)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT
        "-fuse-ld=lld -nostdlib++ -nodefaultlibs -L${darwin}/libraries -F${darwin}/libraries -Wl,-Z -lc++ -lobjc -lSystem")
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(PKG_CONFIG_EXECUTABLE /usr/bin/pkg-config)
