# Fails if a source below SOURCE_DIR includes a path with "..", and lists each match.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)
fail_if_found("^[ \t]*#[ \t]*include.*\\.\\./" "^tests/architecture/climbing_example/"
    "an include climbs out of its include root")
