#pragma once

#include "bitrates.h"

#include <QAbstractTableModel>
#include <QMap>
#include <QPointer>

class TraceDigest;

/// The lines of a trace as a table for a view, with how busy they are, as of the last refresh. Bit
/// rates may be edited.
class LineTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        LineColumn,
        LoadColumn, ///< in the last second
        MeanLoadColumn,
        PeakLoadColumn, ///< in the busiest second
        RateColumn,     ///< in the last second
        CountColumn,
        ErrorColumn,
        BitRateColumn, ///< in kbit/s
        DataBitRateColumn
    };
    static constexpr int columns = DataBitRateColumn + 1;

    explicit LineTable(QObject *parent = nullptr);

    /// Null for none.
    void setDigest(TraceDigest *digest);
    /// Takes in what the digest has come to know.
    void refresh();
    /// Of one of the lines.
    BitRates bitRates(quint8 line) const { return rates.value(line); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    void bitRatesChanged();

private:
    void rebuild();
    QString text(const LineDigest &line, int column) const;
    double meanLoad(const LineDigest &line) const;

    QPointer<TraceDigest> digest;
    QVector<LineDigest> lines;
    QMap<quint8, BitRates> rates;
};
