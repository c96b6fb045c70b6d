# Signs BUNDLE by CODESIGN as IDENTITY ("-" for this machine alone): from the inside out, and each part by itself, because the
# system runs nothing that has changed since it was signed, and a signature that is put on everything at once gives every
# part the same rights.
set(options --force --sign ${IDENTITY})
# What the maker of the system asks of a program that other people are to run; neither is to be had without an identity.
if(NOT IDENTITY STREQUAL "-")
    list(APPEND options --options runtime --timestamp)
endif()

file(GLOB frameworks ${BUNDLE}/Contents/Frameworks/*.framework)
file(GLOB libraries ${BUNDLE}/Contents/Frameworks/*.dylib)
file(GLOB_RECURSE plugins ${BUNDLE}/Contents/PlugIns/*.dylib)
file(GLOB helpers ${BUNDLE}/Contents/Helpers/*)

foreach(part IN LISTS libraries frameworks plugins helpers BUNDLE)
    execute_process(COMMAND ${CODESIGN} ${options} ${part} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
