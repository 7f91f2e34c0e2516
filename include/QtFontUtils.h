// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/paint/Font.h>

#include <QString>

namespace zembra {

/// Reads a TrueType file into a font that carries its bytes.
///
/// `resourcePath` is a Qt resource (":/...") or an ordinary file. The font is known under
/// `familyName`; when that is empty, under the family that Qt finds in the file, or else under the
/// base name of the file. To be called on the GUI thread.
///
/// Units: `size` in logical pixels.
/// Errors: a file that is empty or cannot be read gives `Font(size)`.
QZEMBRA_EXPORT Font loadFontFromResource(const QString& resourcePath, double size,
                                         const QString& familyName = {});

} // namespace zembra
