// SPDX-License-Identifier: MIT
#include "window/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace viewer {

namespace {

constexpr qsizetype mostFiles = 10;

QString key() {
    return QStringLiteral("recentFiles");
}

} // namespace

QStringList recentFiles() {
    return QSettings().value(key()).toStringList().mid(0, mostFiles);
}

void rememberFile(const QString& path) {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = recentFiles();
    files.removeAll(absolute);
    files.prepend(absolute);
    QSettings().setValue(key(), files.mid(0, mostFiles));
}

void forgetFiles() {
    QSettings().remove(key());
}

} // namespace viewer
