#pragma once

#include "digestvalues.h"

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QPointer>
#include <QVector>

#include <vector>

class TraceDigest;

/// The identifiers of a trace as a table for views. Rows stay where they are while their values
/// change; where they are sorted by what changes, they are sorted again once a second.
class IdentifierTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        IdentifierColumn,
        LineColumn,
        KindColumn,
        LengthColumn,
        DataColumn,
        CurveColumn, ///< for a delegate
        CountColumn,
        RateColumn,
        PeriodColumn, ///< of late
        MeanPeriodColumn,
        LeastPeriodColumn,
        MostPeriodColumn,
        AgeColumn
    };
    static constexpr int columns = AgeColumn + 1;

    explicit IdentifierTable(QObject *parent = nullptr);

    /// Null for none.
    void setDigest(TraceDigest *digest);
    TraceDigest *digest() const { return ownDigest; }

    /// Shows identifiers that contain the text as they are written.
    void setFilter(const QString &text);
    /// Of identifiers and of payloads: 10 or 16.
    void setBases(int identifiers, int data);
    int identifierBase() const { return ownBase; }
    int dataBase() const { return ownDataBase; }

    /// What a row is about; it holds until the next change. Null for no row.
    const IdentifierDigest *at(int row) const;
    /// Takes in that time goes on: ages, rates, and colours that fade.
    void updateAges();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    /// What an identifier is sorted by.
    struct Sorted
    {
        int place;
        const IdentifierDigest *identifier;
        double key;
        QString kind;
    };

    void rebuild();
    void take(const QVector<int> &places);
    void addRows();
    bool isShown(const IdentifierDigest &identifier) const;
    QVector<int> sorted(const QVector<int> &places) const;
    void sortAgain();
    bool isBefore(const Sorted &a, const Sorted &b) const;
    double sortKey(const IdentifierDigest &identifier) const;
    double rateOf(const IdentifierDigest &identifier) const;
    bool isOverdue(const IdentifierDigest &identifier) const;
    qint64 ageOf(const IdentifierDigest &identifier) const;
    QString text(const IdentifierDigest &identifier, int column) const;

    QPointer<TraceDigest> ownDigest;
    QString filter;
    int ownBase = 16;
    int ownDataBase = 16;
    int sortColumn = IdentifierColumn;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    QElapsedTimer sinceSorted;
    QVector<int> rows;  // the place of each
    QVector<int> rowOf; // by place; -1 for what the filter does not show
};
