# SPDX-License-Identifier: MIT
# Packs the build folder `build` into `output`, checks what each package of version `version` holds and
# needs, and unpacks them all into a root of their own, output/root.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${output})
execute_process(COMMAND ${cpack} -G DEB -B ${output} --config ${build}/CPackConfig.cmake
    WORKING_DIRECTORY ${build} OUTPUT_VARIABLE log ERROR_VARIABLE log RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "cpack failed:\n${log}")
endif()
string(REGEX REPLACE "\\..*" "" major ${version})
set(lib "usr/lib/[^/\n]+")
set(seen)

# Reads the package `name` into `files`, one path a line, and `control`.
macro(open_package name)
    file(GLOB archive ${output}/${name}_${version}_*.deb)
    list(LENGTH archive count)
    if(NOT count EQUAL 1)
        message(FATAL_ERROR "There is not one package ${name}: ${archive}")
    endif()
    execute_process(COMMAND dpkg-deb --fsys-tarfile ${archive} COMMAND tar -t
        OUTPUT_VARIABLE files COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND dpkg-deb -f ${archive} OUTPUT_VARIABLE control
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND dpkg-deb -x ${archive} ${output}/root COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND seen ${archive})
endmacro()

# Fails unless each pattern names a path of the package, and each path is named by a pattern.
# What matches `may_hold` is welcome and need not be there.
function(check_files name)
    string(REPLACE "\n" ";" paths "${files}")
    list(FILTER paths EXCLUDE REGEX "/$|^$")
    foreach(pattern ${ARGN} "usr/share/doc/${name}/copyright" "usr/share/doc/${name}/changelog.gz")
        set(matching ${paths})
        list(FILTER matching INCLUDE REGEX "^\\./${pattern}$")
        if(NOT matching)
            message(FATAL_ERROR "${name} has no ${pattern}:\n${files}")
        endif()
        list(FILTER paths EXCLUDE REGEX "^\\./${pattern}$")
    endforeach()
    if(may_hold)
        list(FILTER paths EXCLUDE REGEX "^\\./${may_hold}$")
    endif()
    if(paths)
        message(FATAL_ERROR "${name} holds what belongs elsewhere: ${paths}")
    endif()
endfunction()

function(check_control name)
    foreach(pattern ${ARGN})
        if(NOT control MATCHES "(^|\n)${pattern}")
            message(FATAL_ERROR "${name} does not say ${pattern}:\n${control}")
        endif()
    endforeach()
endfunction()

open_package(libzembra${major})
check_files(libzembra${major} "${lib}/libzembra\\.so\\.${major}" "${lib}/libzembra\\.so\\.${version}")
check_control(libzembra${major} "Depends: [^\n]*libc6" "Depends: [^\n]*libfmt" "Section: libs")
if(control MATCHES "libqt6")
    message(FATAL_ERROR "The core needs Qt:\n${control}")
endif()

open_package(libzembra-dev)
check_files(libzembra-dev "${lib}/libzembra\\.so" "usr/include/zembra/.*\\.h"
    "${lib}/pkgconfig/zembra\\.pc" "${lib}/cmake/zembra/zembra[A-Za-z-]*\\.cmake")
check_control(libzembra-dev "Depends: [^\n]*libzembra${major} \\(= ${version}\\)"
    "Section: libdevel")

open_package(libqzembra${major})
check_files(libqzembra${major} "${lib}/libqzembra\\.so\\.${major}"
    "${lib}/libqzembra\\.so\\.${version}")
check_control(libqzembra${major} "Depends: [^\n]*libzembra${major} \\(= ${version}\\)"
    "Depends: [^\n]*libqt6widgets6" "Depends: [^\n]*libqt6svg6")

open_package(libqzembra-dev)
set(designer)
if(has_designer)
    set(designer "${lib}/qt6/plugins/designer/libzembradesigner\\.so")
endif()
check_files(libqzembra-dev "${lib}/libqzembra\\.so" "usr/include/[A-Za-z_]*\\.h" ${designer}
    "${lib}/pkgconfig/qzembra\\.pc" "${lib}/cmake/qzembra/qzembra[A-Za-z-]*\\.cmake")
check_control(libqzembra-dev "Depends: [^\n]*libqzembra${major} \\(= ${version}\\)"
    "Depends: [^\n]*libzembra-dev \\(= ${version}\\)" "Depends: [^\n]*qt6-base-dev")

open_package(zembra-view)
set(may_hold "usr/share/(man|applications|icons|metainfo|mime|zembra-view)/.*")
check_files(zembra-view "usr/bin/zembra-view")
unset(may_hold)
check_control(zembra-view "Depends: [^\n]*libqzembra${major}")

open_package(zembra-doc)
set(reference)
if(has_reference)
    set(reference "usr/share/doc/zembra-doc/html/index\\.html" "usr/share/doc/zembra-doc/html/.*")
endif()
check_files(zembra-doc "usr/share/doc/zembra-doc/[A-Za-z-]*\\.md"
    "usr/share/doc/zembra-doc/migration/[a-z-]*\\.md"
    "usr/share/doc/zembra-doc/gallery/[a-z-]*\\.png"
    "usr/share/doc/zembra-doc/examples/.*" ${reference})
check_control(zembra-doc "Architecture: all")

file(GLOB all ${output}/*.deb)
list(REMOVE_ITEM all ${seen})
if(all)
    message(FATAL_ERROR "There are more packages than expected: ${all}")
endif()
