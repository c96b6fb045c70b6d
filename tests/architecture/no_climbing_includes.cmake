# Fails if a source below SOURCE_DIR includes by a path with "..", and names each place.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)
fail_if_found("^[ \t]*#[ \t]*include.*\\.\\./" "^tests/architecture/climbing_example/"
    "an include climbs out of its include root")
