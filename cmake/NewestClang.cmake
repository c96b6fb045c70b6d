# Finds the newest installed Clang with its own C++ library and sanitizer runtime. Distributions ship different
# versions, and the unversioned compiler often has another version than these libraries.
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
message(FATAL_ERROR "No Clang with libc++ and compiler-rt found in /usr/lib/llvm-*; run scripts/install-dependencies --all")
