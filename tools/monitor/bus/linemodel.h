#pragma once

#include <QAbstractTableModel>

#include <vector>

class BusLines;

/// The bus lines as rows: number, name, state, messages, messages a second.
class LineModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Number, Name, State, Messages, Rate };

    explicit LineModel(BusLines *lines, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Takes in what the lines have received. The rates are for the time since the last call, which
    /// is \a milliseconds ago.
    void updateCounts(int milliseconds);

private:
    struct Shown
    {
        quint64 taken = 0;
        double rate = 0;
    };

    QString textOf(int row, int column) const;
    QString tipOf(int row) const;
    void keepShown();

    BusLines *const lines;
    std::vector<Shown> shown; // of the rows
};
