// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/data/Samples.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ScatterSeries.h>

#include <QObject>
#include <Qt>

#include <memory>

class QAbstractItemModel;

namespace zembra {

/// Feeds a series with two columns of an item model, and follows the model's changes.
///
/// It looks at the model's top level. Numbers are taken as they are, texts as numbers in C
/// notation, dates and times as seconds since the Unix epoch (UTC); whatever else an item holds is
/// a gap. The changes of one turn of the event loop reach the series together. It owns neither
/// model nor series. GUI thread only.
class QZEMBRA_EXPORT ZembraItemModelSamples : public QObject {
    Q_OBJECT

public:
    explicit ZembraItemModelSamples(QObject* parent = nullptr);
    ~ZembraItemModelSamples() override;

    /// Null, as at first, and a model that is deleted, give no samples.
    void setModel(QAbstractItemModel* model);
    /// The columns to take x and y from, 0 and 1 at first; -1 for x counts rows from 0. A column
    /// that the model does not have gives gaps.
    void setColumns(int x, int y);
    /// `Qt::DisplayRole` at first.
    void setRole(int role);

    /// The series to feed, at once and after every change; null for none.
    void setSeries(std::shared_ptr<LineSeries> series);
    void setSeries(std::shared_ptr<ScatterSeries> series);

    QAbstractItemModel* model() const;
    int xColumn() const;
    int yColumn() const;
    int role() const;
    /// What the series was fed last.
    const Samples& samples() const;

Q_SIGNALS:
    /// The series has other samples; a view of it wants to paint again.
    void samplesChanged();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
