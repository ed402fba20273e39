#include "linemodel.h"

#include "buslines.h"
#include "pluralform.h"

#include <QApplication>
#include <QLocale>
#include <QPalette>
#include <QStyle>

LineModel::LineModel(BusLines *lines, QObject *parent) : QAbstractTableModel(parent), lines(lines)
{
    connect(lines, &BusLines::aboutToBeAdded, this,
            [this](int row) { beginInsertRows({}, row, row); });
    connect(lines, &BusLines::added, this, [this] {
        shown.emplace_back();
        endInsertRows();
    });
    connect(lines, &BusLines::aboutToBeRemoved, this, [this](int row) {
        beginRemoveRows({}, row, row);
        shown.erase(shown.begin() + row);
    });
    connect(lines, &BusLines::removed, this, [this] { endRemoveRows(); });
    connect(lines, &BusLines::stateChanged, this,
            [this](int row) { emit dataChanged(index(row, 0), index(row, Rate)); });
}

int LineModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(shown.size());
}

int LineModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Rate + 1;
}

QVariant LineModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int((section >= Messages ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    const QString titles[] = {tr("Line"), tr("From"), tr("State"), tr("Messages"), tr("Per s")};
    return titles[section];
}

QVariant LineModel::data(const QModelIndex &index, int role) const
{
    const int row = index.row();
    const BusLine *line = lines->at(row);
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index.column());
    case Qt::ToolTipRole:
        return tipOf(row);
    case Qt::TextAlignmentRole:
        return int((index.column() >= Messages ? Qt::AlignRight : Qt::AlignLeft)
                   | Qt::AlignVCenter);
    case Qt::DecorationRole:
        if (index.column() == State && line->state() == BusLine::Failed)
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical);
        if (index.column() == State && line->state() == BusLine::Lost)
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        return {};
    case Qt::ForegroundRole:
        return line->isActive()
            ? QVariant()
            : QVariant(QApplication::palette().brush(QPalette::Disabled, QPalette::Text));
    default:
        return {};
    }
}

QString LineModel::textOf(int row, int column) const
{
    const BusLine *line = lines->at(row);
    const Shown &counts = shown[std::size_t(row)];
    switch (column) {
    case Number:
        return QString::number(line->number());
    case Name:
        return line->name();
    case State:
        return line->stateText();
    case Messages:
        return QLocale().toString(counts.taken);
    default:
        return line->isActive() ? QLocale().toString(counts.rate, 'f', 0) : QString();
    }
}

QString LineModel::tipOf(int row) const
{
    const BusLine *line = lines->at(row);
    QStringList texts(line->name());
    if (!line->errorText().isEmpty())
        texts.append(line->errorText());
    if (line->unreadable() > 0)
        texts.append(tr("%L1 frames were no messages and are not recorded.", nullptr,
                        pluralForm(line->unreadable()))
                         .arg(line->unreadable()));
    return texts.join(QLatin1Char('\n'));
}

void LineModel::updateCounts(int milliseconds)
{
    constexpr double perSecond = 1000;
    if (shown.empty())
        return;
    for (int row = 0; row < rowCount(); ++row) {
        const quint64 taken = lines->at(row)->taken();
        Shown &counts = shown[std::size_t(row)];
        counts.rate = double(taken - counts.taken) * perSecond / qMax(1, milliseconds);
        counts.taken = taken;
    }
    emit dataChanged(index(0, State), index(rowCount() - 1, Rate));
}
