#include "filterdialog.h"

#include "savedfilters.h"
#include "traceexpression.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

FilterDialog::FilterDialog(QWidget *parent)
    : QDialog(parent), table(new QTableWidget(0, 2, this)),
      remove(new QPushButton(tr("&Remove"), this))
{
    setObjectName(QStringLiteral("filterDialog"));
    setWindowTitle(tr("Saved filters"));
    setAttribute(Qt::WA_DeleteOnClose);
    table->setHorizontalHeaderLabels({tr("Name"), tr("Expression")});
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (const SavedFilters::Filter &filter : SavedFilters::all()) {
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 0, new QTableWidgetItem(filter.name));
        auto *expression = new QTableWidgetItem(filter.expression);
        expression->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        table->setItem(row, 1, expression);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    keep = buttons->button(QDialogButtonBox::Ok);
    buttons->addButton(remove, QDialogButtonBox::ActionRole);
    connect(remove, &QPushButton::clicked, this, &FilterDialog::removeRow);
    connect(buttons, &QDialogButtonBox::accepted, this, &FilterDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &FilterDialog::reject);
    connect(table, &QTableWidget::itemChanged, this, &FilterDialog::check);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(buttons);
    const int character = fontMetrics().averageCharWidth();
    table->setColumnWidth(0, 24 * character);
    resize(90 * character, 20 * fontMetrics().height());
    check();
}

void FilterDialog::removeRow()
{
    table->removeRow(table->currentRow());
    check();
}

// Only what can be used is kept.
void FilterDialog::check()
{
    bool isGood = true;
    for (int row = 0; row < table->rowCount(); ++row) {
        TraceExpression::Error error;
        QTableWidgetItem *item = table->item(row, 1);
        const bool isExpression = TraceExpression::parse(item->text(), &error).has_value();
        if (item->toolTip() != error.text)
            item->setToolTip(error.text);
        isGood = isGood && isExpression && !table->item(row, 0)->text().trimmed().isEmpty();
    }
    keep->setEnabled(isGood);
    remove->setEnabled(table->rowCount() > 0);
}

void FilterDialog::accept()
{
    if (!keep->isEnabled())
        return;
    QVector<SavedFilters::Filter> filters;
    for (int row = 0; row < table->rowCount(); ++row)
        filters.append({table->item(row, 0)->text().trimmed(), table->item(row, 1)->text()});
    SavedFilters::setAll(filters);
    QDialog::accept();
}
