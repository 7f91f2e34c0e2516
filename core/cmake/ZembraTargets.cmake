# SPDX-License-Identifier: MIT
# What every target of the two libraries has in common.

option(ZEMBRA_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

# Warnings for our own code; never passed on to whoever links it.
function(zembra_strict_warnings target)
    target_compile_options(${target} PRIVATE
        $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang,AppleClang>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wnon-virtual-dtor;-Woverloaded-virtual>
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<BOOL:${ZEMBRA_WARNINGS_AS_ERRORS}>>:-Werror>)
endfunction()
