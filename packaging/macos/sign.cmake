# Signs BUNDLE with CODESIGN as IDENTITY ("-" for this machine alone). It signs each part separately, from the inside out:
# the system refuses parts that changed after signing, and a single deep signature would give every part the same rights.
set(options --force --sign ${IDENTITY})
# Apple requires both options for distribution; both require an identity.
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
