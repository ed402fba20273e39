#include "chunksdialog.h"

#include "chunknames.h"
#include "messagetext.h"
#include "plaintexts.h"
#include "showntrace.h"

#include <QAbstractTableModel>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// One row for each chunk.
class ChunkModel : public QAbstractTableModel
{
public:
    enum Column { Name, Position, Messages, First, Last };

    ChunkModel(const QVector<TraceChunk> &chunks, QObject *parent)
        : QAbstractTableModel(parent), chunks(chunks)
    {
    }

    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(chunks.size());
    }
    int columnCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : Last + 1;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const TraceChunk &chunk = chunks.at(index.row());
        if (role == Qt::ToolTipRole)
            return chunk.name;
        if (role == Qt::TextAlignmentRole && index.column() != Name)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? text(chunk, index.column()) : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role == Qt::TextAlignmentRole)
            return int((section == Name ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        const QString titles[] = {ChunksDialog::tr("Chunk"), ChunksDialog::tr("Position"),
                                  ChunksDialog::tr("Messages"), ChunksDialog::tr("First time"),
                                  ChunksDialog::tr("Last time")};
        return titles[section];
    }

private:
    // What lies in an archive comes with words of its own.
    static QString nameOf(const TraceChunk &chunk)
    {
        if (chunk.name.isEmpty())
            return ChunksDialog::tr("in memory");
        return isChunkName(chunk.name) ? shortName(chunk.name) : chunk.name;
    }
    static QVariant text(const TraceChunk &chunk, int column)
    {
        switch (column) {
        case Name:
            return nameOf(chunk);
        case Position:
            return QString::number(chunk.position);
        case Messages:
            return QLocale().toString(qulonglong(chunk.count));
        default:
            return MessageText::moment(column == First ? chunk.firstTime : chunk.lastTime);
        }
    }

    const QVector<TraceChunk> chunks;
};

int rowAt(const QVector<TraceChunk> &chunks, quint64 position)
{
    const auto behind = std::upper_bound(
        chunks.begin(), chunks.end(), position,
        [](quint64 wanted, const TraceChunk &chunk) { return wanted < chunk.position; });
    return std::max(0, int(behind - chunks.begin()) - 1);
}

} // namespace

ChunksDialog::ChunksDialog(const ShownTrace &trace, quint64 position, QWidget *parent)
    : QDialog(parent), table(new QTableView(this)), chunks(trace.timeline().chunks())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("chunks"));
    setWindowTitle(tr("Chunks of %1").arg(trace.title()));
    table->setModel(new ChunkModel(chunks, this));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    const int character = fontMetrics().averageCharWidth();
    const int widths[] = {30, 14, 14, 28, 28};
    for (int i = 0; i <= ChunkModel::Last; ++i)
        table->setColumnWidth(i, widths[i] * character);
    table->horizontalHeader()->setSectionResizeMode(ChunkModel::Name, QHeaderView::Stretch);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto *button = box->addButton(tr("&Go there"), QDialogButtonBox::AcceptRole);
    button->setEnabled(!chunks.isEmpty());
    button->setDefault(true);
    connect(box, &QDialogButtonBox::accepted, this, &ChunksDialog::choose);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(table, &QTableView::activated, this, &ChunksDialog::choose);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(box);
    table->selectRow(rowAt(chunks, position));
    resize(character * 125, fontMetrics().height() * 25);
}

// It stays, for the next one.
void ChunksDialog::choose()
{
    const int row = table->currentIndex().row();
    if (row >= 0 && row < chunks.size())
        emit positionChosen(chunks.at(row).position);
}
