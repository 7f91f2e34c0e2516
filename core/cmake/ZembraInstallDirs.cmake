# SPDX-License-Identifier: MIT
# Folders to install into, and how what lies there finds its neighbours.

# Debian and its kin keep libraries in a folder named after the machine below every prefix; CMake by
# itself does so below /usr only.
if(PROJECT_IS_TOP_LEVEL AND CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE STRING
        "Folder for libraries below the prefix")
endif()
include(GNUInstallDirs)

# Sets `variable` to the run-time search path by which what is installed into the folder `from` finds
# the libraries of the same prefix, wherever that lies.
function(zembra_private_rpath variable from)
    file(RELATIVE_PATH path ${from} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(origin $ORIGIN)
    if(APPLE)
        set(origin @loader_path)
    endif()
    string(REGEX REPLACE "/$" "" rpath "${origin}/${path}")
    set(${variable} ${rpath} PARENT_SCOPE)
endfunction()

# Makes NAME.pc of the template and installs it. It finds the prefix from where it lies.
function(zembra_install_pkg_config template name component)
    file(RELATIVE_PATH prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" PC_PREFIX "\${pcfiledir}/${prefix}")
    # The headers have to know that a library is static, and its users what that was made of; those
    # of a shared one do not need even the packages installed.
    set(PC_IF_STATIC "# ")
    set(PC_DEFINITION)
    if(NOT BUILD_SHARED_LIBS)
        set(PC_IF_STATIC)
        string(TOUPPER "-D${name}_STATIC_DEFINE" PC_DEFINITION)
    endif()
    configure_file(${template} ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()
