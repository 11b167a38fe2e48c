# SPDX-License-Identifier: GPL-3.0-or-later
# duo_own_code(<target>): our own code is held to a stricter standard than what we include.
function(duo_own_code target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Werror -Wnon-virtual-dtor -Wnull-dereference)
    if(DUO_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # What the compiler says of values without a beginning it gets wrong in instrumented code.
        target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
    target_compile_features(${target} PUBLIC cxx_std_17)
endfunction()
