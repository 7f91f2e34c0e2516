# SPDX-License-Identifier: MIT
# What every target of the two libraries has in common.

option(ZEMBRA_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
set(ZEMBRA_SANITIZERS "" CACHE STRING "Sanitizers to build with, such as address,undefined")

# Warnings, and sanitizers where asked for; never passed on to whoever links the target.
function(zembra_strict_warnings target)
    target_compile_options(${target} PRIVATE
        $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang,AppleClang>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wnon-virtual-dtor;-Woverloaded-virtual>
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<BOOL:${ZEMBRA_WARNINGS_AS_ERRORS}>>:-Werror>)
    get_target_property(unity ${target} UNITY_BUILD)
    if(unity)
        # Takes a source that is compiled along with others for a header.
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-subobject-linkage>)
    endif()
    if(ZEMBRA_SANITIZERS)
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fsanitize=${ZEMBRA_SANITIZERS};-fno-sanitize-recover=all;-fno-omit-frame-pointer>)
        target_link_options(${target} PRIVATE -fsanitize=${ZEMBRA_SANITIZERS})
    endif()
endfunction()

# For folders of tests: they run for a moment, so what counts is how fast they compile. What they
# test is optimised as ever. Their sources may use the same names, so each is compiled by itself.
macro(zembra_compile_quickly)
    set(CMAKE_UNITY_BUILD OFF)
    add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang,AppleClang>:-O0>)
endmacro()

# Whoever builds this project itself compiles nothing twice; a project that embeds it decides for
# itself.
if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ZEMBRA_CCACHE ccache)
    mark_as_advanced(ZEMBRA_CCACHE)
    if(ZEMBRA_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${ZEMBRA_CCACHE})
    endif()
endif()
