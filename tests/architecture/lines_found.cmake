# fail_if_found(REGEX EXCEPT MESSAGE): fails with MESSAGE if a source line below SOURCE_DIR matches REGEX, and lists each
# match. EXCEPT matches the paths of exempt sources.
function(fail_if_found regex except message)
    set(found)
    foreach(folder src tools bench tests)
        file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
             ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.c ${SOURCE_DIR}/${folder}/*.cpp
             ${SOURCE_DIR}/${folder}/*.m ${SOURCE_DIR}/${folder}/*.mm)
        list(FILTER sources EXCLUDE REGEX ${except})
        foreach(source IN LISTS sources)
            file(STRINGS ${SOURCE_DIR}/${source} lines REGEX ${regex})
            foreach(line IN LISTS lines)
                list(APPEND found "${source}: ${line}")
            endforeach()
        endforeach()
    endforeach()
    if(found)
        list(JOIN found "\n" text)
        # One line per match; message() would reflow them.
        execute_process(COMMAND ${CMAKE_COMMAND} -E echo "${text}")
        message(FATAL_ERROR ${message})
    endif()
endfunction()
