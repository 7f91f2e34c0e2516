// SPDX-License-Identifier: MIT
#include "window/ColumnDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace viewer {

namespace {

constexpr int mostItemsShown = 20;
constexpr int shortestBox = 24;
constexpr QSize comfortableSize = {460, 580};

QString textOf(const std::string& name) {
    return QString::fromStdString(name).simplified();
}

void setItemEnabled(QComboBox& box, int index, bool enabled) {
    if (auto* const model = qobject_cast<QStandardItemModel*>(box.model()))
        model->item(index)->setEnabled(enabled);
}

void select(QComboBox& box, const std::vector<ChoosableColumn>& columns,
            const std::optional<std::string>& reference) {
    const auto found = std::ranges::find_if(columns, [&reference](const ChoosableColumn& column) {
        return column.reference == reference;
    });
    box.setCurrentIndex(found == columns.end() ? 0 : 1 + static_cast<int>(found - columns.begin()));
}

} // namespace

ColumnDialog::ColumnDialog(ColumnChoice choice, QWidget* parent)
    : QDialog(parent),
      choice(std::move(choice)),
      kinds(new QComboBox(this)),
      xs(new QComboBox(this)),
      filter(new QLineEdit(this)),
      ys(new QTreeWidget(this)),
      all(new QPushButton(tr("Check &All"), this)),
      none(new QPushButton(tr("Check &None"), this)),
      bys(new QComboBox(this)),
      logX(new QCheckBox(tr("&Horizontal axis logarithmic"), this)),
      logY(new QCheckBox(tr("&Vertical axis logarithmic"), this)),
      message(new QLabel(this)) {
    setWindowTitle(tr("Choose Columns"));
    fillKinds();
    fillColumns();
    arrange();
    showChoice();
    connect(filter, &QLineEdit::textChanged, this, &ColumnDialog::showMatching);
    connect(all, &QPushButton::clicked, this, [this] { checkShown(true); });
    connect(none, &QPushButton::clicked, this, [this] { checkShown(false); });
    connect(kinds, &QComboBox::currentIndexChanged, this, &ColumnDialog::followKind);
    connect(xs, &QComboBox::currentIndexChanged, this, &ColumnDialog::followChoice);
    connect(bys, &QComboBox::currentIndexChanged, this, &ColumnDialog::followChoice);
    connect(ys, &QTreeWidget::itemChanged, this, &ColumnDialog::followChoice);
    followKind();
}

void ColumnDialog::fillKinds() {
    const auto add = [this](const QString& text, ChartKind kind) {
        kinds->addItem(text, static_cast<int>(kind));
    };
    add(tr("Lines"), ChartKind::Line);
    add(tr("Markers"), ChartKind::Scatter);
    add(tr("Bars"), ChartKind::Bar);
    add(tr("Histogram"), ChartKind::Histogram);
    add(tr("Box plots"), ChartKind::Box);
    add(tr("Heat map"), ChartKind::HeatMap);
    add(tr("Candles"), ChartKind::Candlestick);
}

void ColumnDialog::fillColumns() {
    xs->addItem(tr("Row number"));
    bys->addItem(tr("None"));
    ys->setColumnCount(2);
    ys->setHeaderLabels({tr("Column"), tr("Holds")});
    QList<QTreeWidgetItem*> items;
    for (const ChoosableColumn& column : choice.columns) {
        const ColumnKind kind = column.cells.kind;
        const QString holds = kind == ColumnKind::Number ? tr("numbers")
                              : kind == ColumnKind::Time ? tr("dates")
                                                         : tr("words");
        const QString name = textOf(column.name);
        const QString both = tr("%1 (%2)").arg(name, holds);
        xs->addItem(both);
        bys->addItem(both);
        auto* const item = new QTreeWidgetItem({name, holds});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                       Qt::ItemNeverHasChildren);
        item->setCheckState(0, Qt::Unchecked);
        items.append(item);
    }
    ys->addTopLevelItems(items);
}

void ColumnDialog::arrange() {
    for (QComboBox* const box : {xs, bys}) {
        box->setMaxVisibleItems(mostItemsShown);
        box->setMinimumContentsLength(shortestBox);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    filter->setClearButtonEnabled(true);
    filter->setPlaceholderText(tr("Part of a name"));
    ys->setRootIsDecorated(false);
    ys->setUniformRowHeights(true);
    ys->header()->setStretchLastSection(false);
    ys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ys->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    for (QPushButton* const button : {all, none}) {
        button->setAutoDefault(false);
        button->setToolTip(tr("Of the columns that the filter shows"));
    }
    message->setWordWrap(true);

    auto* const above = new QFormLayout;
    above->addRow(tr("&Kind:"), kinds);
    above->addRow(tr("&X:"), xs);
    auto* const yLabel = new QLabel(tr("&Y columns:"), this);
    yLabel->setBuddy(ys);
    // Lists do not take the text of their label for a name.
    ys->setAccessibleName(tr("Y columns"));
    auto* const search = new QFormLayout;
    search->addRow(tr("&Filter:"), filter);
    auto* const checks = new QHBoxLayout;
    checks->addWidget(all);
    checks->addWidget(none);
    checks->addStretch();
    auto* const below = new QFormLayout;
    below->addRow(tr("&By:"), bys);
    below->addRow(logX);
    below->addRow(logY);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &ColumnDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ColumnDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(above);
    layout->addWidget(yLabel);
    layout->addLayout(search);
    layout->addWidget(ys, 1);
    layout->addLayout(checks);
    layout->addLayout(below);
    layout->addWidget(message);
    layout->addWidget(buttons);
    resize(comfortableSize);
}

void ColumnDialog::showChoice() {
    const Options& shown = choice.options;
    const ChartKind shownKind = shown.kind.value_or(ChartKind::Line);
    kinds->setCurrentIndex(kinds->findData(static_cast<int>(shownKind)));
    select(*xs, choice.columns, shown.x);
    select(*bys, choice.columns, shown.by);
    for (int place = ys->topLevelItemCount() - 1; place >= 0; --place) {
        const std::string& reference = choice.columns[static_cast<std::size_t>(place)].reference;
        if (std::ranges::find(shown.y, reference) == shown.y.end())
            continue;
        ys->topLevelItem(place)->setCheckState(0, Qt::Checked);
        ys->setCurrentItem(ys->topLevelItem(place));
    }
    logX->setChecked(shown.logX);
    logY->setChecked(shown.logY);
}

ChartKind ColumnDialog::kind() const {
    return static_cast<ChartKind>(kinds->currentData().toInt());
}

const ChoosableColumn* ColumnDialog::chosen(const QComboBox* box) const {
    const int index = box->currentIndex();
    return index < 1 ? nullptr : &choice.columns[static_cast<std::size_t>(index - 1)];
}

bool ColumnDialog::isDrawn(int place) const {
    const QTreeWidgetItem* const item = ys->topLevelItem(place);
    return !item->isDisabled() && item->checkState(0) == Qt::Checked;
}

int ColumnDialog::drawnCount() const {
    int count = 0;
    for (int place = 0; place < ys->topLevelItemCount(); ++place)
        count += isDrawn(place) ? 1 : 0;
    return count;
}

Options ColumnDialog::options() const {
    const KindChoices takes = choicesOf(kind());
    Options result = choice.options;
    result.guesses = false;
    result.kind = kind();
    const ChoosableColumn* const x = takes.x ? chosen(xs) : nullptr;
    result.x = x ? std::optional(x->reference) : std::nullopt;
    result.y.clear();
    for (int place = 0; takes.y && place < ys->topLevelItemCount(); ++place) {
        if (isDrawn(place))
            result.y.push_back(choice.columns[static_cast<std::size_t>(place)].reference);
    }
    const ChoosableColumn* const by = bys->isEnabled() ? chosen(bys) : nullptr;
    result.by = by ? std::optional(by->reference) : std::nullopt;
    result.logX = logX->isEnabled() && logX->isChecked();
    result.logY = logY->isEnabled() && logY->isChecked();
    return result;
}

void ColumnDialog::checkShown(bool checked) {
    {
        const QSignalBlocker blocker(ys);
        for (int place = 0; place < ys->topLevelItemCount(); ++place) {
            QTreeWidgetItem* const item = ys->topLevelItem(place);
            if (!item->isHidden() && !item->isDisabled())
                item->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
        }
    }
    followChoice();
}

void ColumnDialog::showMatching() {
    for (int place = 0; place < ys->topLevelItemCount(); ++place) {
        QTreeWidgetItem* const item = ys->topLevelItem(place);
        item->setHidden(!item->text(0).contains(filter->text().trimmed(), Qt::CaseInsensitive));
    }
    // Keys go on from an item that can be seen.
    QTreeWidgetItem* current = ys->currentItem();
    for (int place = 0; current && current->isHidden() && place < ys->topLevelItemCount(); ++place)
        current = ys->topLevelItem(place);
    ys->setCurrentItem(current);
}

// Choices that have no meaning for the kind stay as they are, for the next kind.
void ColumnDialog::followKind() {
    const KindChoices takes = choicesOf(kind());
    xs->setEnabled(takes.x);
    logY->setEnabled(takes.logY);
    for (QWidget* const widget : {static_cast<QWidget*>(filter), static_cast<QWidget*>(ys),
                                  static_cast<QWidget*>(all), static_cast<QWidget*>(none)})
        widget->setEnabled(takes.y);
    {
        const QSignalBlocker blocker(ys);
        for (int place = 0; place < ys->topLevelItemCount(); ++place) {
            const ChoosableColumn& column = choice.columns[static_cast<std::size_t>(place)];
            ys->topLevelItem(place)->setDisabled(!fitsY(column, kind()));
            setItemEnabled(*xs, place + 1, fitsX(column, kind()));
            setItemEnabled(*bys, place + 1, fitsBy(column, kind()));
        }
    }
    followChoice();
}

void ColumnDialog::followChoice() {
    const KindChoices takes = choicesOf(kind());
    const ChoosableColumn* const x = takes.x ? chosen(xs) : nullptr;
    // A matrix has no other values than its cells.
    bys->setEnabled(takes.by && (kind() != ChartKind::HeatMap || x));
    logX->setEnabled(takes.logX && (!x || x->cells.kind == ColumnKind::Number));
    const QString wrong = problem();
    ok->setEnabled(wrong.isEmpty());
    message->setText(wrong.isEmpty() ? hint() : wrong);
}

QString ColumnDialog::problem() const {
    const KindChoices takes = choicesOf(kind());
    const ChoosableColumn* const x = takes.x ? chosen(xs) : nullptr;
    const ChoosableColumn* const by = bys->isEnabled() ? chosen(bys) : nullptr;
    if (x && !fitsX(*x, kind()))
        return tr("This kind of chart cannot take x from that column.");
    if (by && !fitsBy(*by, kind()))
        return tr("This kind of chart cannot use that column after “By”.");
    if (takes.y && drawnCount() == 0)
        return tr("Check at least one column.");
    if (kind() == ChartKind::HeatMap && x && drawnCount() > 1)
        return tr("A heat map over x takes one column for y.");
    return {};
}

QString ColumnDialog::hint() const {
    if (kind() == ChartKind::Candlestick)
        return tr("Candles take the columns open, high, low and close.");
    if (kind() == ChartKind::HeatMap && !chosen(xs))
        return tr("The checked columns make a matrix.");
    if (kind() == ChartKind::HeatMap)
        return tr("The column after “By” gives the values.");
    return tr("Columns checked: %1").arg(drawnCount());
}

} // namespace viewer
