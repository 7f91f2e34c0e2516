// SPDX-License-Identifier: MIT
#include "BuiltInFaces.h"

#include <array>
#include <cstddef>

// The faces are placed into the library by the assembler (see BuiltInFaceData.S.in).
extern "C" {
#define ZEMBRA_FACE(n) extern const unsigned char zembra_face_##n[], zembra_face_##n##_end[]
ZEMBRA_FACE(0);
ZEMBRA_FACE(1);
ZEMBRA_FACE(2);
ZEMBRA_FACE(3);
ZEMBRA_FACE(4);
ZEMBRA_FACE(5);
ZEMBRA_FACE(6);
ZEMBRA_FACE(7);
#undef ZEMBRA_FACE
}

namespace zembra {

namespace {

constexpr std::size_t faceCount = 8;

constexpr std::array<const char*, faceCount> faceNames = {
    "Lato",         "Lato Bold",         "Lato Italic",          "Lato Bold Italic",
    "DejaVu Serif", "DejaVu Serif Bold", "DejaVu Serif Oblique", "DejaVu Serif Bold Oblique",
};

std::vector<std::uint8_t> copyFace(std::size_t face) {
    static const std::array<std::array<const unsigned char*, 2>, faceCount> images = {{
        {zembra_face_0, zembra_face_0_end},
        {zembra_face_1, zembra_face_1_end},
        {zembra_face_2, zembra_face_2_end},
        {zembra_face_3, zembra_face_3_end},
        {zembra_face_4, zembra_face_4_end},
        {zembra_face_5, zembra_face_5_end},
        {zembra_face_6, zembra_face_6_end},
        {zembra_face_7, zembra_face_7_end},
    }};
    return {images[face][0], images[face][1]};
}

template <std::size_t Face>
const std::vector<std::uint8_t>& faceOnce() {
    static const std::vector<std::uint8_t> bytes = copyFace(Face);
    return bytes;
}

} // namespace

bool isBuiltInFace(FontFamily family) {
    return static_cast<int>(family) >= 0 && static_cast<std::size_t>(family) < faceCount;
}

const char* builtInFaceName(FontFamily family) {
    return faceNames[static_cast<std::size_t>(family)];
}

const std::vector<std::uint8_t>& builtInFaceData(FontFamily family) {
    static constexpr std::array<const std::vector<std::uint8_t>& (*)(), faceCount> loaders = {
        faceOnce<0>, faceOnce<1>, faceOnce<2>, faceOnce<3>,
        faceOnce<4>, faceOnce<5>, faceOnce<6>, faceOnce<7>,
    };
    return loaders[static_cast<std::size_t>(family)]();
}

} // namespace zembra
