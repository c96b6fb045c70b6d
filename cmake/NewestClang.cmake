# The newest installed Clang that has its own C++ library and sanitizer runtime. Releases have different versions of it, and
# a compiler without version in its name is often not the one that these belong to.
file(GLOB folders /usr/lib/llvm-*)
list(SORT folders COMPARE NATURAL ORDER DESCENDING)
foreach(folder IN LISTS folders)
    file(GLOB runtimes ${folder}/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a)
    if(runtimes AND EXISTS ${folder}/bin/clang++ AND EXISTS ${folder}/include/c++/v1)
        set(CMAKE_C_COMPILER ${folder}/bin/clang)
        set(CMAKE_CXX_COMPILER ${folder}/bin/clang++)
        return()
    endif()
endforeach()
message(FATAL_ERROR "There is no Clang with libc++ and compiler-rt in /usr/lib/llvm-*: scripts/install-dependencies --all")
