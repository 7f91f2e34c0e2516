// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace viewer {

// The files that were opened last, the newest first, kept in the settings of the application.

QStringList recentFiles();
/// Puts a file first. Relative names are made absolute.
void rememberFile(const QString& path);
void forgetFiles();

} // namespace viewer
