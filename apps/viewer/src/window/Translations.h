// SPDX-License-Identifier: MIT
#pragma once

class QLocale;

namespace viewer {

/// Has the application speak the first of the locale's languages that there is a translation into;
/// without one it speaks English. Requires: an application. Returns whether there is one.
bool installTranslations(const QLocale& locale);

} // namespace viewer
