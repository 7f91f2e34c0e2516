# SPDX-License-Identifier: MIT
# Installs the build folder `build` into `prefix`, which holds nothing else afterwards.
file(REMOVE_RECURSE ${prefix})
if(config)
    set(configuration --config ${config})
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix} ${configuration}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
