# Fails if a source below SOURCE_DIR includes by a path with "..", and names each place.
set(found)
foreach(folder src tools bench tests)
    file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
         ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.c ${SOURCE_DIR}/${folder}/*.cpp
         ${SOURCE_DIR}/${folder}/*.mm)
    list(FILTER sources EXCLUDE REGEX "^tests/architecture/climbing_example/")
    foreach(source IN LISTS sources)
        file(STRINGS ${SOURCE_DIR}/${source} lines REGEX "^[ \t]*#[ \t]*include.*\\.\\./")
        foreach(line IN LISTS lines)
            list(APPEND found "${source}: ${line}")
        endforeach()
    endforeach()
endforeach()
if(found)
    list(JOIN found "\n" text)
    # As one line each, which the message command would reflow.
    execute_process(COMMAND ${CMAKE_COMMAND} -E echo "${text}")
    message(FATAL_ERROR "an include climbs out of its include root")
endif()
