# A header's opening comment says Units, Thread, Owner and Errors in lines of their own: a reader looks for them at the
# margin. A formatter that reflows comments once hid dozens of them in running text.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)

fail_if_found("^//.*[^/ ] +(Units|Thread|Owner|Errors): " "_example/"
    "These labels must begin a line of their own.")
