# SPDX-License-Identifier: MIT
# Finds the eight built-in faces and places their TrueType files into a target.

set(ZEMBRA_FONT_DIRS "/usr/share/fonts;/usr/local/share/fonts" CACHE STRING
    "Folders below which the TrueType files of the built-in faces are looked for")

# Path suffixes under which distributions keep the two families.
set(zembra_face_suffixes truetype/lato truetype/dejavu lato dejavu TTF lato-fonts
    dejavu-serif-fonts)

function(zembra_find_face index file package)
    find_file(ZEMBRA_FACE_${index} ${file} PATHS ${ZEMBRA_FONT_DIRS}
        PATH_SUFFIXES ${zembra_face_suffixes} NO_DEFAULT_PATH
        DOC "TrueType file of built-in face ${index}")
    if(NOT ZEMBRA_FACE_${index})
        message(FATAL_ERROR "The font file ${file} was not found. On Debian and Ubuntu the package "
            "${package} brings it: apt-get install ${package}. Elsewhere, name the folder that "
            "holds it in ZEMBRA_FONT_DIRS.")
    endif()
endfunction()

zembra_find_face(0 Lato-Regular.ttf fonts-lato)
zembra_find_face(1 Lato-Bold.ttf fonts-lato)
zembra_find_face(2 Lato-Italic.ttf fonts-lato)
zembra_find_face(3 Lato-BoldItalic.ttf fonts-lato)
zembra_find_face(4 DejaVuSerif.ttf fonts-dejavu-core)
zembra_find_face(5 DejaVuSerif-Bold.ttf fonts-dejavu-core)
zembra_find_face(6 DejaVuSerif-Italic.ttf fonts-dejavu-extra)
zembra_find_face(7 DejaVuSerif-BoldItalic.ttf fonts-dejavu-extra)

function(zembra_embed_faces target)
    foreach(face RANGE 7)
        set(faceFile ${ZEMBRA_FACE_${face}})
        set(assembly ${CMAKE_CURRENT_BINARY_DIR}/faces/face_${face}.S)
        configure_file(${CMAKE_CURRENT_SOURCE_DIR}/src/paint/BuiltInFaceData.S.in ${assembly} @ONLY)
        # The assembler reads the file itself, which no dependency scanner sees.
        set_source_files_properties(${assembly} PROPERTIES OBJECT_DEPENDS ${faceFile})
        target_sources(${target} PRIVATE ${assembly})
    endforeach()
endfunction()
