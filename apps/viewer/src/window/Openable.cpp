// SPDX-License-Identifier: MIT
#include "window/Openable.h"

#include "TableReader.h"

#include <QByteArray>
#include <QMimeData>
#include <QUrl>

#include <string_view>

namespace viewer {

namespace {

// As much as tells whether it looks like a table.
constexpr qsizetype headSize = qsizetype{64} * 1024;

bool beginsLikeTable(const QString& text) {
    qsizetype size = text.size();
    // Half a record would be another one.
    if (size > headSize)
        size = text.lastIndexOf(u'\n', headSize) + 1;
    const QByteArray head = QStringView(text).left(size).toUtf8();
    return looksLikeTable(
        std::string_view(head.constData(), static_cast<std::size_t>(head.size())));
}

} // namespace

Openable::Openable(const QMimeData* data) {
    if (!data)
        return;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    if (!files.isEmpty() || !data->hasText())
        return;
    const QString copied = data->text();
    if (beginsLikeTable(copied))
        text = copied;
}

} // namespace viewer
