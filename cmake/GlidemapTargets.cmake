# Each folder is one static library, with an include root that contains only its own headers. A target can include a
# header only if it links the library that owns the header. An include that violates the dependencies does not compile.

# Links the headers (include paths, relative to BASE) into the target's own include root. They form a header set, which the
# preset `headers` compiles one by one. A header that relies on another header's includes fails there.
function(glidemap_include_root target scope base)
    set(root ${CMAKE_BINARY_DIR}/include-roots/${target})
    set(links)
    foreach(header IN LISTS ARGN)
        get_filename_component(folder ${root}/${header} DIRECTORY)
        file(MAKE_DIRECTORY ${folder})
        file(CREATE_LINK ${base}/${header} ${root}/${header} SYMBOLIC)
        list(APPEND links ${root}/${header})
    endforeach()
    target_include_directories(${target} ${scope} ${root})
    if(CMAKE_VERIFY_INTERFACE_HEADER_SETS AND links)
        target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS ${root} FILES ${links})
    endif()
endfunction()

# glidemap_library(NAME [HEADERS path…] [SOURCES path…] [DEPENDS target…] [PRIVATE_DEPENDS target…])
# Creates glidemap_NAME. HEADERS are include paths ("core/lang.h"); SOURCES are relative to the calling folder.
function(glidemap_library name)
    cmake_parse_arguments(ARG "" "BASE" "HEADERS;SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    if(NOT ARG_BASE)
        set(ARG_BASE ${CMAKE_SOURCE_DIR}/src)
    endif()
    set(target glidemap_${name})
    if(ARG_SOURCES)
        add_library(${target} STATIC ${ARG_SOURCES})
        glidemap_include_root(${target} PUBLIC ${ARG_BASE} ${ARG_HEADERS})
        target_link_libraries(${target} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS})
        glidemap_precompile(${target})
    else()
        add_library(${target} INTERFACE)
        glidemap_include_root(${target} INTERFACE ${ARG_BASE} ${ARG_HEADERS})
        target_link_libraries(${target} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()

# For targets whose code runs before the C++ library is loaded: exceptions would need that library.
function(glidemap_without_cxx_library)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE -fno-exceptions)
        set_target_properties(${target} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
    endforeach()
endfunction()

# glidemap_driver(NAME SOURCES path… DEPENDS target…): a loadable touch driver, lib/glidemap/libglidemap-NAME.so.
function(glidemap_driver name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(glidemap_${name}_driver MODULE ${ARG_SOURCES})
    target_link_libraries(glidemap_${name}_driver PRIVATE ${ARG_DEPENDS})
    set_target_properties(glidemap_${name}_driver PROPERTIES
        OUTPUT_NAME glidemap-${name}
        LIBRARY_OUTPUT_DIRECTORY ${GLIDEMAP_DRIVER_OUTPUT_DIRECTORY})
    # Undefined symbols must fail the link, not the start of the program.
    if(NOT GLIDEMAP_SANITIZERS)
        target_link_options(glidemap_${name}_driver PRIVATE -Wl,--no-undefined)
    endif()
endfunction()

# Fails if the calling folder contains a test that its CMakeLists.txt does not list, because no build would include that
# test. A subfolder with its own CMakeLists.txt lists its own tests.
function(glidemap_require_listed_tests)
    file(READ CMakeLists.txt list)
    file(GLOB_RECURSE present RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *_test.cpp *_test.mm)
    foreach(source IN LISTS present)
        get_filename_component(folder ${source} DIRECTORY)
        if(folder AND EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
            continue()
        endif()
        string(REPLACE "." "\\." pattern ${source})
        if(NOT list MATCHES "[ \n]${pattern}[ \n)]")
            message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR}/${source} is not listed in CMakeLists.txt")
        endif()
    endforeach()
endfunction()

# glidemap_tests(NAME SOURCES path… DEPENDS target…): tests of one folder, with NAME as CTest label and as prefix of each case.
# NAME is the folder's path below tests/, with `_` for `/`. A folder with several programs adds a word to the name of each.
# Under a sanitizer a folder is one test, because sanitized programs start slowly. Otherwise each case is one test.
# The time-outs are generous and only end hung tests, because a busy machine may be ten times slower than an idle one.
function(glidemap_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    glidemap_require_listed_tests()
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR}/tests ${CMAKE_CURRENT_SOURCE_DIR})
    string(REPLACE "/" "_" folder ${folder})
    if(NOT name MATCHES "^${folder}(_|$)")
        message(FATAL_ERROR "The tests of ${CMAKE_CURRENT_SOURCE_DIR} must be named ${folder} or ${folder}_WORD, not ${name}")
    endif()
    add_executable(${name}_tests ${ARG_SOURCES})
    target_link_libraries(${name}_tests PRIVATE ${ARG_DEPENDS} glidemap_kit_patience GTest::gmock GTest::gtest_main)
    glidemap_precompile(${name}_tests)
    set_target_properties(${name}_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    if(GLIDEMAP_SANITIZERS)
        add_test(NAME ${name} COMMAND ${name}_tests)
        set_tests_properties(${name} PROPERTIES LABELS ${name} TIMEOUT 3600)
    else()
        gtest_discover_tests(${name}_tests TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 600
                             PROPERTIES LABELS ${name} TIMEOUT 1200)
    endif()
endfunction()
