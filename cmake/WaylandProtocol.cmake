# wayland_protocol(TARGET file.xml): creates a static library of the client code that wayland-scanner generates for a
# protocol. Include the header as <FILE-client-protocol.h>. The target wayland_protocols builds the code of every protocol.

find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET GLOBAL wayland-client)

if(NOT TARGET wayland_protocols)
    add_custom_target(wayland_protocols)
endif()

function(wayland_protocol target xml)
    get_filename_component(name ${xml} NAME_WE)
    set(folder ${CMAKE_BINARY_DIR}/protocols/${target})
    file(MAKE_DIRECTORY ${folder})
    set(header ${folder}/${name}-client-protocol.h)
    set(code ${folder}/${name}-protocol.c)
    add_custom_command(OUTPUT ${header} ${code}
        COMMAND ${WAYLAND_SCANNER} client-header ${xml} ${header}
        COMMAND ${WAYLAND_SCANNER} private-code ${xml} ${code}
        DEPENDS ${xml} VERBATIM)
    add_library(${target} STATIC ${code} ${header})
    target_compile_options(${target} PRIVATE -w) # generated code
    target_include_directories(${target} SYSTEM PUBLIC ${folder})
    target_link_libraries(${target} PUBLIC PkgConfig::WAYLAND_CLIENT)
    add_dependencies(wayland_protocols ${target})
endfunction()
