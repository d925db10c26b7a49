# Our own code is free of warnings; generated code is compiled apart and not judged.
function(qz_strict target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
        $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)  # which gcc's -Wconversion leaves out in C++
endfunction()
