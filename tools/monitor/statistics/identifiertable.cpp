#include "identifiertable.h"

#include "canframe.h"
#include "digesttext.h"
#include "tracedigest.h"

#include <QGuiApplication>
#include <QPalette>

#include <numeric>

IdentifierTable::IdentifierTable(QObject *parent) : QAbstractTableModel(parent)
{
    sinceSorted.start();
}

void IdentifierTable::setDigest(TraceDigest *digest)
{
    if (ownDigest)
        ownDigest->disconnect(this);
    ownDigest = digest;
    if (digest) {
        connect(digest, &TraceDigest::cleared, this, &IdentifierTable::rebuild);
        connect(digest, &TraceDigest::updated, this, &IdentifierTable::take);
    }
    rebuild();
}

void IdentifierTable::setFilter(const QString &text)
{
    filter = text.trimmed();
    rebuild();
}

void IdentifierTable::setBases(int identifiers, int data)
{
    if (ownBase == identifiers && ownDataBase == data)
        return;
    ownBase = identifiers;
    ownDataBase = data;
    rebuild();
}

const IdentifierDigest *IdentifierTable::at(int row) const
{
    return ownDigest && row >= 0 && row < rows.size() ? &ownDigest->identifiers().at(rows.at(row))
                                                      : nullptr;
}

void IdentifierTable::rebuild()
{
    beginResetModel();
    rows.clear();
    rowOf.clear();
    const int count = ownDigest ? ownDigest->identifiers().size() : 0;
    for (int place = 0; place < count; ++place) {
        if (isShown(ownDigest->identifiers().at(place)))
            rows.append(place);
    }
    rows = sorted(rows);
    rowOf.fill(-1, count);
    for (int row = 0; row < rows.size(); ++row)
        rowOf[rows.at(row)] = row;
    endResetModel();
}

void IdentifierTable::take(const QVector<int> &places)
{
    int first = rows.size();
    int last = -1;
    for (const int place : places) {
        const int row = place < rowOf.size() ? rowOf.at(place) : -1;
        if (row < 0)
            continue;
        first = std::min(first, row);
        last = std::max(last, row);
    }
    if (last >= 0)
        emit dataChanged(index(first, LengthColumn), index(last, AgeColumn));
    const bool isMore = ownDigest->identifiers().size() > rowOf.size();
    if (isMore)
        addRows();
    constexpr int millisecondsBetweenSorting = 1000;
    if (isMore || (sortColumn > KindColumn && sinceSorted.hasExpired(millisecondsBetweenSorting)))
        sortAgain();
}

// They come behind the others, all at once.
void IdentifierTable::addRows()
{
    QVector<int> more;
    const int count = ownDigest->identifiers().size();
    for (int place = rowOf.size(); place < count; ++place) {
        const bool isWanted = isShown(ownDigest->identifiers().at(place));
        rowOf.append(isWanted ? rows.size() + more.size() : -1);
        if (isWanted)
            more.append(place);
    }
    if (more.isEmpty())
        return;
    beginInsertRows({}, rows.size(), rows.size() + more.size() - 1);
    rows += more;
    endInsertRows();
}

bool IdentifierTable::isShown(const IdentifierDigest &identifier) const
{
    return filter.isEmpty()
        || text(identifier, IdentifierColumn).contains(filter, Qt::CaseInsensitive)
        || text(identifier, KindColumn).contains(filter, Qt::CaseInsensitive);
}

void IdentifierTable::sort(int column, Qt::SortOrder order)
{
    sortColumn = column;
    sortOrder = order;
    sortAgain();
}

// Ages go on while they are compared, and an order that changes meanwhile is none: what is compared
// is worked out before.
QVector<int> IdentifierTable::sorted(const QVector<int> &places) const
{
    if (!ownDigest)
        return places;
    const QVector<IdentifierDigest> &identifiers = ownDigest->identifiers();
    std::vector<Sorted> all;
    all.reserve(std::size_t(places.size()));
    for (const int place : places) {
        const IdentifierDigest &identifier = identifiers.at(place);
        const bool isKind = sortColumn == KindColumn;
        all.push_back({place, &identifier, isKind ? 0 : sortKey(identifier),
                       isKind ? DigestText::kind(identifier.last) : QString()});
    }
    std::stable_sort(all.begin(), all.end(), [this](const Sorted &a, const Sorted &b) {
        return sortOrder == Qt::AscendingOrder ? isBefore(a, b) : isBefore(b, a);
    });
    QVector<int> now;
    now.reserve(places.size());
    for (const Sorted &identifier : all)
        now.append(identifier.place);
    return now;
}

void IdentifierTable::sortAgain()
{
    sinceSorted.start();
    const QVector<int> now = sorted(rows);
    if (now == rows)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QVector<int> before = rows;
    rows = now;
    for (int row = 0; row < rows.size(); ++row)
        rowOf[rows.at(row)] = row;
    const QModelIndexList kept = persistentIndexList();
    for (const QModelIndex &old : kept)
        changePersistentIndex(old, index(rowOf.at(before.at(old.row())), old.column()));
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool IdentifierTable::isBefore(const Sorted &a, const Sorted &b) const
{
    const CAN::CanRxMessage &first = a.identifier->last;
    const CAN::CanRxMessage &second = b.identifier->last;
    if (sortColumn == DataColumn) {
        const int shorter = std::min(CAN::payloadSize(first), CAN::payloadSize(second));
        const int order = memcmp(first.data, second.data, std::size_t(shorter));
        return order != 0 ? order < 0 : first.length < second.length;
    }
    if (sortColumn == KindColumn)
        return a.kind < b.kind;
    if (a.key != b.key || sortColumn != IdentifierColumn)
        return a.key < b.key;
    return (first.line & 0xFF) < (second.line & 0xFF);
}

double IdentifierTable::sortKey(const IdentifierDigest &identifier) const
{
    switch (sortColumn) {
    case LineColumn:
        return identifier.last.line & 0xFF;
    case CountColumn:
        return double(identifier.count);
    case RateColumn:
    case CurveColumn:
        return rateOf(identifier);
    case PeriodColumn:
        return identifier.recentPeriod;
    case MeanPeriodColumn:
        return identifier.meanPeriod;
    case LeastPeriodColumn:
        return double(identifier.leastPeriod);
    case MostPeriodColumn:
        return double(identifier.mostPeriod);
    case AgeColumn:
        return -double(CAN::timeOf(identifier.last));
    case LengthColumn:
        return identifier.last.length;
    default:
        return identifier.last.id;
    }
}

// Falls where messages stay away. What comes only once has no rate.
double IdentifierTable::rateOf(const IdentifierDigest &identifier) const
{
    const double period =
        isOverdue(identifier) ? double(ageOf(identifier)) : identifier.recentPeriod;
    return identifier.count < 2 || period <= 0 ? 0 : 1e6 / period;
}

// What is known of a trace that grows is always a little old.
bool IdentifierTable::isOverdue(const IdentifierDigest &identifier) const
{
    constexpr double least = 2e6;
    return ownDigest->isGrowing()
        && double(ageOf(identifier)) > std::max(least, 5 * identifier.recentPeriod);
}

qint64 IdentifierTable::ageOf(const IdentifierDigest &identifier) const
{
    return std::max<qint64>(0, ownDigest->now() - CAN::timeOf(identifier.last));
}

void IdentifierTable::updateAges()
{
    if (!rows.isEmpty())
        emit dataChanged(index(0, LengthColumn), index(rows.size() - 1, AgeColumn));
}

int IdentifierTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !ownDigest ? 0 : rows.size();
}

int IdentifierTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString IdentifierTable::text(const IdentifierDigest &identifier, int column) const
{
    const bool hasPeriod = identifier.count > 1;
    const auto period = [hasPeriod](double time) {
        return hasPeriod ? DigestText::duration(time) : QString();
    };
    switch (column) {
    case IdentifierColumn:
        return DigestText::identifier(identifier.last, ownBase);
    case LineColumn:
        return QString::number(identifier.last.line & 0xFF);
    case KindColumn:
        return DigestText::kind(identifier.last);
    case CountColumn:
        return DigestText::count(identifier.count);
    case RateColumn:
        return hasPeriod ? DigestText::rate(rateOf(identifier)) : QString();
    case PeriodColumn:
        return period(identifier.recentPeriod);
    case MeanPeriodColumn:
        return period(identifier.meanPeriod);
    case LeastPeriodColumn:
        return period(double(identifier.leastPeriod));
    case MostPeriodColumn:
        return period(double(identifier.mostPeriod));
    case AgeColumn:
        return DigestText::age(ageOf(identifier));
    case LengthColumn:
        return QString::number(CAN::payloadSize(identifier.last));
    case DataColumn:
        return DigestText::bytes(identifier.last, ownDataBase);
    default:
        return {};
    }
}

QVariant IdentifierTable::data(const QModelIndex &index, int role) const
{
    const IdentifierDigest *identifier = index.isValid() ? at(index.row()) : nullptr;
    if (!identifier)
        return {};
    if (role == Qt::DisplayRole)
        return text(*identifier, index.column());
    if (role == Qt::ToolTipRole && index.column() == DataColumn)
        return text(*identifier, DataColumn);
    if (role == Qt::TextAlignmentRole) {
        const bool isText = index.column() == KindColumn || index.column() == DataColumn;
        return int(Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight));
    }
    if (role == Qt::ForegroundRole && isOverdue(*identifier))
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    return {};
}

QVariant IdentifierTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    static const struct
    {
        const char *title;
        const char *tip;
    } texts[columns] = {
        {QT_TR_NOOP("ID"), QT_TR_NOOP("Identifier")},
        {QT_TR_NOOP("Line"), QT_TR_NOOP("Bus line")},
        {QT_TR_NOOP("Kind"), QT_TR_NOOP("Extended, remote, CAN FD, error frame")},
        {QT_TR_NOOP("Len"), QT_TR_NOOP("Payload bytes of the last message")},
        {QT_TR_NOOP("Data"),
         QT_TR_NOOP("Payload of the last message; bytes that have just changed are marked")},
        {QT_TR_NOOP("Over time"), QT_TR_NOOP("Messages over the whole trace")},
        {QT_TR_NOOP("Count"), QT_TR_NOOP("Messages in the trace")},
        {QT_TR_NOOP("Per s"), QT_TR_NOOP("Messages each second, of late")},
        {QT_TR_NOOP("Period"), QT_TR_NOOP("Time between messages, mean of the last eight")},
        {QT_TR_NOOP("Mean"), QT_TR_NOOP("Time between messages, mean of all")},
        {QT_TR_NOOP("Min"), QT_TR_NOOP("Shortest time between two messages")},
        {QT_TR_NOOP("Max"), QT_TR_NOOP("Longest time between two messages")},
        {QT_TR_NOOP("Age"), QT_TR_NOOP("Time from the last message to the end of the trace")},
    };
    if (role == Qt::DisplayRole)
        return tr(texts[section].title);
    if (role == Qt::ToolTipRole)
        return tr(texts[section].tip);
    if (role == Qt::TextAlignmentRole && (section == KindColumn || section == DataColumn))
        return int(Qt::AlignVCenter | Qt::AlignLeft);
    return {};
}
