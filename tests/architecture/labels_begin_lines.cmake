# In a header's opening comment, the labels Units, Thread, Owner and Errors each begin a line, because readers look for
# them at the margin. A formatter that reflowed comments once hid dozens of them in running text.
include(${CMAKE_CURRENT_LIST_DIR}/lines_found.cmake)

fail_if_found("^//.*[^/ ] +(Units|Thread|Owner|Errors): " "_example/"
    "These labels must begin a line of their own.")
