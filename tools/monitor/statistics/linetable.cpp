#include "linetable.h"

#include "digesttext.h"
#include "linecolor.h"
#include "tracedigest.h"

#include <QGuiApplication>
#include <QLocale>

#include <cmath>

namespace {

bool isBitRate(int column)
{
    return column == LineTable::BitRateColumn || column == LineTable::DataBitRateColumn;
}

bool haveSameLines(const QVector<LineDigest> &a, const QVector<LineDigest> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const LineDigest &x, const LineDigest &y) { return x.line == y.line; });
}

} // namespace

LineTable::LineTable(QObject *parent) : QAbstractTableModel(parent) { }

void LineTable::setDigest(TraceDigest *newDigest)
{
    digest = newDigest;
    rebuild();
}

void LineTable::rebuild()
{
    beginResetModel();
    lines = digest ? digest->summary().lines : QVector<LineDigest>();
    for (const LineDigest &line : std::as_const(lines))
        rates.insert(line.line, BitRates::ofLine(line.line));
    endResetModel();
}

// Leaves the last columns alone, where the user may be writing.
void LineTable::refresh()
{
    if (!digest || !haveSameLines(lines, digest->summary().lines)) {
        rebuild();
        return;
    }
    lines = digest->summary().lines;
    if (!lines.isEmpty())
        emit dataChanged(index(0, LoadColumn), index(lines.size() - 1, ErrorColumn));
}

int LineTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : lines.size();
}

int LineTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

// Over the time that the whole trace takes, where that is long enough to tell.
double LineTable::meanLoad(const LineDigest &line) const
{
    const qint64 time = digest ? digest->summary().last - digest->summary().first : 0;
    return time <= 0 ? 0 : bitRates(line.line).load(line.bits) * 1e6 / double(time);
}

QString LineTable::text(const LineDigest &line, int column) const
{
    const BitRates rate = bitRates(line.line);
    const bool isSilent = digest && digest->isSilent();
    switch (column) {
    case LineColumn:
        return QString::number(line.line);
    case BitRateColumn:
        return QLocale().toString(rate.nominal / 1000.0, 'g', 8);
    case DataBitRateColumn:
        return QLocale().toString(rate.data / 1000.0, 'g', 8);
    case LoadColumn:
        return DigestText::percent(isSilent ? 0 : rate.load(line.latest.bits));
    case MeanLoadColumn:
        return DigestText::percent(meanLoad(line));
    case PeakLoadColumn:
        return DigestText::percent(std::max(rate.load(line.busiest.bits), meanLoad(line)));
    case RateColumn:
        return DigestText::count(isSilent ? 0 : line.latest.messages);
    case CountColumn:
        return DigestText::count(line.count);
    default:
        return DigestText::count(line.errorFrames);
    }
}

QVariant LineTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= lines.size())
        return {};
    const LineDigest &line = lines.at(index.row());
    if (role == Qt::DisplayRole || (role == Qt::EditRole && isBitRate(index.column())))
        return text(line, index.column());
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | Qt::AlignRight);
    if (role == Qt::DecorationRole && index.column() == LineColumn)
        return lineColor(line.line, QGuiApplication::palette());
    if (role == Qt::ForegroundRole && index.column() == ErrorColumn && line.errorFrames > 0)
        return errorColor(QGuiApplication::palette());
    if (role == Qt::ToolTipRole && isBitRate(index.column()))
        return tr("In kbit/s; press F2 to change it.");
    return {};
}

// False for what is no bit rate.
bool LineTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || !isBitRate(index.column()))
        return false;
    bool isNumber = false;
    const QString written = value.toString();
    double kilobits = QLocale().toDouble(written, &isNumber);
    if (!isNumber)
        kilobits = written.toDouble(&isNumber);
    const double bits = std::round(kilobits * 1000);
    if (!isNumber || bits < BitRates::least || bits > BitRates::most)
        return false;
    const quint8 line = lines.at(index.row()).line;
    BitRates &rate = rates[line];
    (index.column() == BitRateColumn ? rate.nominal : rate.data) = int(bits);
    rate.keep(line);
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columns - 1));
    emit bitRatesChanged();
    return true;
}

Qt::ItemFlags LineTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return isBitRate(index.column()) ? usual | Qt::ItemIsEditable : usual;
}

QVariant LineTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    static const struct
    {
        const char *title;
        const char *tip;
    } texts[columns] = {
        {QT_TR_NOOP("Line"), QT_TR_NOOP("Bus line")},
        {QT_TR_NOOP("Load"), QT_TR_NOOP("Bus load in the last second of the trace")},
        {QT_TR_NOOP("Mean"), QT_TR_NOOP("Bus load over the whole trace")},
        {QT_TR_NOOP("Peak"), QT_TR_NOOP("Bus load in the busiest second")},
        {QT_TR_NOOP("Per s"), QT_TR_NOOP("Messages in the last second of the trace")},
        {QT_TR_NOOP("Messages"), QT_TR_NOOP("Messages in the trace")},
        {QT_TR_NOOP("Errors"), QT_TR_NOOP("Error frames")},
        {QT_TR_NOOP("kbit/s"), QT_TR_NOOP("Bit rate, for the load; press F2 to change it")},
        {QT_TR_NOOP("FD kbit/s"),
         QT_TR_NOOP("Bit rate of CAN FD data, for the load; press F2 to change it")},
    };
    if (role == Qt::DisplayRole)
        return tr(texts[section].title);
    if (role == Qt::ToolTipRole)
        return tr(texts[section].tip);
    return {};
}
