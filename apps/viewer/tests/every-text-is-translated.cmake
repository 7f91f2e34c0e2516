# SPDX-License-Identifier: MIT
# Fails when a source text is not translated, or a translation has no source text any more.
foreach(translation ${TRANSLATIONS})
    cmake_path(GET translation FILENAME name)
    set(copy ${WORK}/${name})
    file(COPY_FILE ${translation} ${copy})
    execute_process(
        COMMAND ${LUPDATE} ${LIBRARY}/src ${LIBRARY}/include ${VIEWER}/src -locations none -ts ${copy}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${copy} updated)
    string(REGEX MATCHALL "<source>[^<]*</source>[^<]*<translation type=[^>]*>" open "${updated}")
    if(open)
        message(FATAL_ERROR "${name}: ${open}")
    endif()
    string(REGEX MATCHALL "<message>" messages "${updated}")
    list(LENGTH messages count)
    if(count LESS 60)
        message(FATAL_ERROR "${name}: only ${count} texts were found")
    endif()
endforeach()
