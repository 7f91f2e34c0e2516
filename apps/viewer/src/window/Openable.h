// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QMimeData;

namespace viewer {

/// What can be opened of something that was dropped or copied: files, or else a text that looks
/// like a table. A value.
struct Openable {
    explicit Openable(const QMimeData* data);

    bool isEmpty() const { return files.isEmpty() && text.isEmpty(); }

    QStringList files;
    QString text;
};

} // namespace viewer
