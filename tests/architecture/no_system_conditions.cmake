# Fails if a source below SOURCE_DIR asks which system it is compiled on, and names each place. Two folders may know that,
# src/platform and src/drivers; the tests of the macOS services stand on a Mac as on Linux, and may ask, too. Everything
# else is the same on every system, and the build files choose what belongs to one.
set(systems "__APPLE__|__MACH__|__linux__|__linux|__gnu_linux__|__unix__|_WIN32|_WIN64|__FreeBSD__|Q_OS_[A-Z0-9_]+|TARGET_OS_[A-Z]+")
set(found)
foreach(folder src tools bench tests)
    file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR}
         ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.c ${SOURCE_DIR}/${folder}/*.cpp
         ${SOURCE_DIR}/${folder}/*.m ${SOURCE_DIR}/${folder}/*.mm)
    list(FILTER sources EXCLUDE REGEX "^(src/platform|src/drivers|tests/macos|tests/architecture/system_example)/")
    foreach(source IN LISTS sources)
        file(STRINGS ${SOURCE_DIR}/${source} lines REGEX "(^|[^A-Za-z0-9_])(${systems})([^A-Za-z0-9_]|$)")
        foreach(line IN LISTS lines)
            list(APPEND found "${source}: ${line}")
        endforeach()
    endforeach()
endforeach()
if(found)
    list(JOIN found "\n" text)
    # As one line each, which the message command would reflow.
    execute_process(COMMAND ${CMAKE_COMMAND} -E echo "${text}")
    message(FATAL_ERROR "a source asks for its system outside src/platform and src/drivers")
endif()
