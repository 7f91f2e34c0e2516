# SPDX-License-Identifier: MIT
# The packages for Debian and Ubuntu: `cpack` in the build folder of a release writes them all.

set(QZEMBRA_PACKAGE_MAINTAINER "The zembra developers <zembra@example.org>" CACHE STRING
    "Whom the Debian packages name as their maintainer")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zembra)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${QZEMBRA_PACKAGE_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What programs and libraries are linked with is read from them. The two libraries themselves are not
# installed while that happens.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${zembra_BINARY_DIR} ${qzembra_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

# Every package brings licence and changes. The library contains fonts, whose licences go with it.
set(notices ${CMAKE_CURRENT_BINARY_DIR}/notices)
file(MAKE_DIRECTORY ${notices})
file(ARCHIVE_CREATE OUTPUT ${notices}/changelog.gz PATHS ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    FORMAT raw COMPRESSION GZip)
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
file(WRITE ${notices}/copyright "${licence}")
foreach(fonts fonts-lato fonts-dejavu-core)
    if(EXISTS /usr/share/doc/${fonts}/copyright)
        file(READ /usr/share/doc/${fonts}/copyright font_licence)
        string(APPEND licence "\n\nThe library contains faces of ${fonts}:\n\n${font_licence}")
    endif()
endforeach()
file(WRITE ${notices}/copyright-with-fonts "${licence}")

# Each package has a first line of its own, followed by this.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(package_text "zembra draws charts that users pan, zoom, box-zoom and export: lines,
bars, heat maps and more, of a few samples or a hundred million.")

# Adds the package `name` of what is installed for `component`.
function(qzembra_add_package component name section summary)
    cmake_parse_arguments(PARSE_ARGV 4 arg "" "ARCHITECTURE;COPYRIGHT" "NEEDS;DEPENDS")
    string(TOUPPER ${component} key)
    string(REPLACE ";" ", " depends "${arg_DEPENDS}")
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
    set(CPACK_COMPONENT_${key}_DEPENDS ${arg_NEEDS} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${package_text}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS ${depends} PARENT_SCOPE)
    if(arg_ARCHITECTURE)
        set(CPACK_DEBIAN_${key}_PACKAGE_ARCHITECTURE ${arg_ARCHITECTURE} PARENT_SCOPE)
    endif()
    if(NOT arg_COPYRIGHT)
        set(arg_COPYRIGHT copyright)
    endif()
    install(FILES ${notices}/${arg_COPYRIGHT} RENAME copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component} EXCLUDE_FROM_ALL)
    install(FILES ${notices}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

qzembra_add_package(zembra_runtime libzembra${PROJECT_VERSION_MAJOR} libs
    "Chart model, scales, ticks and reduction, without a toolkit"
    COPYRIGHT copyright-with-fonts)
qzembra_add_package(zembra_development libzembra-dev libdevel
    "Chart model, scales, ticks and reduction - development files"
    NEEDS zembra_runtime)
qzembra_add_package(qzembra_runtime libqzembra${PROJECT_VERSION_MAJOR} libs
    "Interactive charts for Qt 6 widget applications"
    NEEDS zembra_runtime)
qzembra_add_package(qzembra_development libqzembra-dev libdevel
    "Interactive charts for Qt 6 widget applications - development files"
    NEEDS qzembra_runtime zembra_development DEPENDS qt6-base-dev)
if(QZEMBRA_BUILD_APPS)
    qzembra_add_package(viewer zembra-view science
        "Shows and exports charts of CSV and TSV files" NEEDS zembra_runtime qzembra_runtime)
endif()
qzembra_add_package(doc zembra-doc doc
    "Interactive charts for Qt 6 widget applications - documents and examples"
    ARCHITECTURE all)
include(CPack)
