# Precompiles headers that many sources include.
#
# Every target gets the standard library's headers. It gets the headers of Qt Widgets and Google Test only if it links
# them, so that no target can use a library that it does not link. In each tree (src, tests), all targets with the same
# headers share the precompiled headers of one donor target. Trees do not share donors, because a compiler accepts
# precompiled headers only with the options that compiled them.
#
# CMAKE_DISABLE_PRECOMPILE_HEADERS disables precompiled headers. The preset `headers`, which compiles each header and
# runs clang-tidy, sets this option to find missing #include lines.

# Registers the target. Its headers are chosen when all targets are known.
function(glidemap_precompile target)
    set_property(GLOBAL APPEND PROPERTY GLIDEMAP_PRECOMPILED_TARGETS ${target})
endfunction()

# Sets RESULT to the libraries whose headers the target's sources can include, without the links of imported libraries.
function(glidemap_linked_libraries target result)
    set(linked)
    set(open ${target})
    while(open)
        list(POP_FRONT open library)
        # Skips private dependencies of static libraries: they are linked, but their headers are not visible.
        if(library MATCHES "^\\$<LINK_ONLY:" OR library IN_LIST linked)
            continue()
        endif()
        list(APPEND linked ${library})
        if(library MATCHES "::" OR NOT TARGET ${library})
            continue()
        endif()
        # The target's own links apply to its sources; the links of its libraries apply to their headers.
        if(library STREQUAL target)
            get_target_property(more ${library} LINK_LIBRARIES)
        else()
            get_target_property(more ${library} INTERFACE_LINK_LIBRARIES)
        endif()
        if(more)
            list(APPEND open ${more})
        endif()
    endwhile()
    set(${result} ${linked} PARENT_SCOPE)
endfunction()

# Assigns headers to each target registered since the last call, with the compiler options of the calling folder.
# Call it at the end of a tree.
function(glidemap_assign_precompiled_headers tree)
    # On a Mac, targets with blocks would need separate precompiled headers, so none are used there. A cross build for a
    # Mac compiles every target with blocks, so it uses precompiled headers. These may hide missing #include lines,
    # which the preset `macos-fakes` finds with the same C++ library.
    if(NOT GLIDEMAP_HOME STREQUAL "linux" AND NOT CMAKE_CROSSCOMPILING)
        return()
    endif()
    get_property(targets GLOBAL PROPERTY GLIDEMAP_PRECOMPILED_TARGETS)
    set_property(GLOBAL PROPERTY GLIDEMAP_PRECOMPILED_TARGETS "")
    set(donors)
    foreach(target IN LISTS targets)
        glidemap_linked_libraries(${target} linked)
        set(donor glidemap_precompiled_${tree})
        if("Qt6::Widgets" IN_LIST linked)
            string(APPEND donor _widgets)
        endif()
        if("GTest::gmock" IN_LIST linked)
            string(APPEND donor _gtest)
        endif()
        list(APPEND donors ${donor})
        set(donor_of_${target} ${donor})
    endforeach()
    list(REMOVE_DUPLICATES donors)
    add_subdirectory(${CMAKE_SOURCE_DIR}/cmake/precompiled ${CMAKE_BINARY_DIR}/precompiled/${tree})
    foreach(target IN LISTS targets)
        set_target_properties(${target} PROPERTIES PRECOMPILE_HEADERS_REUSE_FROM ${donor_of_${target}})
    endforeach()
endfunction()
