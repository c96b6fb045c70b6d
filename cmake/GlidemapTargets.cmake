# One static library a folder, each with an include root that holds its own headers and nothing else. A target sees a
# header only if it links the library that owns it, so an include against the arrows does not compile.

# Links the headers (paths as they are included, below BASE) into an include root of their own.
function(glidemap_include_root target base)
    set(root ${CMAKE_BINARY_DIR}/include-roots/${target})
    foreach(header IN LISTS ARGN)
        get_filename_component(folder ${root}/${header} DIRECTORY)
        file(MAKE_DIRECTORY ${folder})
        file(CREATE_LINK ${base}/${header} ${root}/${header} SYMBOLIC)
    endforeach()
    set(GLIDEMAP_ROOT ${root} PARENT_SCOPE)
endfunction()

# Compiles every header by itself: a header that leans on what another one includes fails here.
function(glidemap_verify_headers target)
    set(sources)
    foreach(header IN LISTS ARGN)
        string(MAKE_C_IDENTIFIER ${header} name)
        set(source ${CMAKE_BINARY_DIR}/header-checks/${target}/${name}.cpp)
        file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\" // IWYU pragma: keep\n")
        list(APPEND sources ${source})
    endforeach()
    # Once is enough: what a header includes is the same under a sanitizer.
    if(sources AND GLIDEMAP_TESTS AND NOT GLIDEMAP_SANITIZERS)
        add_library(${target}_headers OBJECT ${sources})
        target_link_libraries(${target}_headers PRIVATE ${target})
    endif()
endfunction()

# glidemap_library(NAME [HEADERS path…] [SOURCES path…] [DEPENDS target…] [PRIVATE_DEPENDS target…])
# Makes glidemap_NAME. HEADERS are written as they are included ("core/lang.h"), SOURCES relative to the caller.
function(glidemap_library name)
    cmake_parse_arguments(ARG "" "BASE" "HEADERS;SOURCES;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    if(NOT ARG_BASE)
        set(ARG_BASE ${CMAKE_SOURCE_DIR}/src)
    endif()
    set(target glidemap_${name})
    glidemap_include_root(${target} ${ARG_BASE} ${ARG_HEADERS})
    if(ARG_SOURCES)
        add_library(${target} STATIC ${ARG_SOURCES})
        target_include_directories(${target} PUBLIC ${GLIDEMAP_ROOT})
        target_link_libraries(${target} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS})
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${GLIDEMAP_ROOT})
        target_link_libraries(${target} INTERFACE ${ARG_DEPENDS})
    endif()
    glidemap_verify_headers(${target} ${ARG_HEADERS})
endfunction()

# glidemap_driver(NAME SOURCES path… DEPENDS target…): a loadable touch driver, lib/glidemap/libglidemap-NAME.so.
function(glidemap_driver name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(glidemap_${name}_driver MODULE ${ARG_SOURCES})
    target_link_libraries(glidemap_${name}_driver PRIVATE ${ARG_DEPENDS})
    set_target_properties(glidemap_${name}_driver PROPERTIES
        OUTPUT_NAME glidemap-${name}
        LIBRARY_OUTPUT_DIRECTORY ${GLIDEMAP_DRIVER_OUTPUT_DIRECTORY})
    # A name that cannot be resolved is found here, not when a person starts the program.
    if(NOT GLIDEMAP_SANITIZERS)
        target_link_options(glidemap_${name}_driver PRIVATE -Wl,--no-undefined)
    endif()
endfunction()

# glidemap_tests(NAME SOURCES path… DEPENDS target…): the tests of one folder, with its name as CTest label.
# Under a sanitizer a folder is one test, so that start-up is paid once; otherwise every case is listed by name.
function(glidemap_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    file(GLOB present RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *_test.cpp *_test.mm)
    foreach(source IN LISTS present)
        if(NOT source IN_LIST ARG_SOURCES)
            message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR}/${source} is not listed in glidemap_tests")
        endif()
    endforeach()
    add_executable(${name}_tests ${ARG_SOURCES})
    target_link_libraries(${name}_tests PRIVATE ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
    set_target_properties(${name}_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    if(GLIDEMAP_SANITIZERS)
        add_test(NAME ${name} COMMAND ${name}_tests)
        set_tests_properties(${name} PROPERTIES LABELS ${name} TIMEOUT 600)
    else()
        gtest_discover_tests(${name}_tests TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60
                             PROPERTIES LABELS ${name} TIMEOUT 120)
    endif()
endfunction()
