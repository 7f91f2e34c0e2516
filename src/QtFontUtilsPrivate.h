// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Font.h>

#include <QFont>

namespace zembra {

/// The Qt font that a font of the core asks for.
///
/// Hands the TrueType data of the font to Qt the first time its family name is seen. Names are
/// never forgotten, so data that come later under the same name are ignored. GUI thread only.
QFont toQFont(const Font& font);

} // namespace zembra
