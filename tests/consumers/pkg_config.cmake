# SPDX-License-Identifier: MIT
# Compiles `source` against the package `package` that pkg-config finds below `prefix`, without CMake's
# help, and runs it. With `static` the libraries are linked into the program.
file(GLOB_RECURSE descriptions ${prefix}/*/${package}.pc)
if(NOT descriptions)
    message(FATAL_ERROR "${prefix} holds no ${package}.pc.")
endif()
cmake_path(GET descriptions PARENT_PATH folder)
cmake_path(GET folder PARENT_PATH libraries)
set(ENV{PKG_CONFIG_PATH} ${folder})
if(static)
    set(flags --static)
endif()

function(ask variable)
    execute_process(COMMAND ${pkg_config} ${ARGN} ${package} OUTPUT_VARIABLE answer
        COMMAND_ERROR_IS_FATAL ANY OUTPUT_STRIP_TRAILING_WHITESPACE)
    separate_arguments(answer UNIX_COMMAND "${answer}")
    set(${variable} ${answer} PARENT_SCOPE)
endfunction()
ask(version --modversion)
if(NOT version STREQUAL expected_version)
    message(FATAL_ERROR "${package}.pc tells version ${version} in place of ${expected_version}.")
endif()
ask(compiling --cflags)
ask(linking ${flags} --libs)

# The path leads the loader to the named library only; what that needs has to be found from there.
get_filename_component(stem ${source} NAME_WE)
set(program ${folder}/${stem})
separate_arguments(extra UNIX_COMMAND "${extra}")
execute_process(COMMAND ${launcher} ${compiler} -std=c++20 -fPIC ${extra} ${compiling} -c ${source}
    -o ${program}.o COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${compiler} ${extra} ${program}.o -o ${program} -Wl,-rpath,${libraries}
    ${linking} COMMAND_ERROR_IS_FATAL ANY)
unset(ENV{LD_LIBRARY_PATH})
execute_process(COMMAND ${program} COMMAND_ERROR_IS_FATAL ANY)
