#include "parquettrace.h"

#include "rowgroupwriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QtEndian>

#include <optional>

using namespace Parquet;

struct ParquetState
{
    void begin(QByteArray &block);
    void writeRows(QByteArray &block);
    std::vector<KeyValue> words() const;

    ParquetTrace::Source source;
    MessageRows rows;
    std::unique_ptr<RowGroupWriter> writer; // none before the first row group
    QByteArray groups;                      // what the end of the file tells of them
    int groupCount = 0;
    qint64 position = 0; // of what comes next, in the file
    quint64 written = 0;
    quint64 notesCut = 0;
};

namespace {

const QByteArray mark = QByteArrayLiteral("PAR1");

struct ParquetTexts
{
    Q_DECLARE_TR_FUNCTIONS(ParquetTrace)
};

// The structure at the end of a file, without its length and mark.
QByteArray endOf(QFile &file)
{
    constexpr qint64 trailerSize = 8;
    constexpr qint64 longest = qint64(64) * 1024 * 1024;
    if (!file.seek(qMax(qint64(0), file.size() - trailerSize)))
        return {};
    const QByteArray trailer = file.read(trailerSize);
    if (trailer.size() < trailerSize || !trailer.endsWith(mark))
        return {};
    const qint64 size = qFromLittleEndian<quint32>(trailer.constData());
    if (size > longest || size > file.size() - trailerSize - mark.size()
        || !file.seek(file.size() - trailerSize - size))
        return {};
    return file.read(size);
}

std::optional<QString> firstDifference(const QStringList &columns)
{
    QStringList ours = columnTexts();
    const auto nameOf = [](const QString &column) {
        return column.section(QLatin1Char(' '), 0, -3);
    };
    for (const QString &column : columns) {
        if (!ours.removeOne(column))
            return nameOf(column);
    }
    return ours.isEmpty() ? std::nullopt : std::optional<QString>(nameOf(ours.first()));
}

} // namespace

void ParquetState::begin(QByteArray &block)
{
    if (position > 0)
        return;
    block += mark;
    position = mark.size();
}

void ParquetState::writeRows(QByteArray &block)
{
    if (rows.count == 0)
        return;
    const int before = block.size();
    if (!writer)
        writer = std::make_unique<RowGroupWriter>();
    // The first alone, for there may be many small ones of a file.
    const auto effort =
        groupCount == 0 && rows.isSmall() ? PageWriter::Thorough : PageWriter::Quick;
    groups += metadataOf(writer->write(rows, block, position, effort));
    position += block.size() - before;
    ++groupCount;
    rows.clear();
}

std::vector<KeyValue> ParquetState::words() const
{
    std::vector<KeyValue> words{{"datachunk.version", DATACHUNK_VERSION}};
    const KeyValue all[] = {{"datachunk.source", source.name.toUtf8()},
                            {"datachunk.sha256", source.sha256},
                            {"datachunk.report", source.report.toUtf8()}};
    std::copy_if(std::begin(all), std::end(all), std::back_inserter(words),
                 [](const KeyValue &word) { return !word.value.isEmpty(); });
    return words;
}

ParquetTrace::ParquetTrace(const Source &source) : d(std::make_unique<ParquetState>())
{
    d->source = source;
}

ParquetTrace::~ParquetTrace() = default;

void ParquetTrace::setSource(const Source &source)
{
    d->source = source;
}

void ParquetTrace::append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block)
{
    d->begin(block);
    d->rows.add(message);
    if (!note.isEmpty() && !d->rows.addNote(note))
        ++d->notesCut;
    ++d->written;
    if (d->rows.isFull())
        d->writeRows(block);
}

void ParquetTrace::append(const CAN::CanRxMessage *messages, int count, QByteArray &block)
{
    d->begin(block);
    for (int i = 0; i < count; ++i) {
        d->rows.add(messages[i]);
        if (d->rows.isFull())
            d->writeRows(block);
    }
    d->written += quint64(count);
}

void ParquetTrace::release(QByteArray &block)
{
    d->writeRows(block);
    d->writer.reset();
    d->rows = {};
}

void ParquetTrace::finish(QByteArray &block)
{
    d->begin(block);
    d->writeRows(block);
    block += footer(d->groups, d->groupCount, qint64(d->written), d->words());
}

quint64 ParquetTrace::written() const
{
    return d->written;
}

quint64 ParquetTrace::notesCut() const
{
    return d->notesCut;
}

QString ParquetTrace::differenceOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QStringList columns = columnsOfFooter(endOf(file));
    if (columns.isEmpty())
        return ParquetTexts::tr("The file is no Parquet file.");
    const std::optional<QString> column = firstDifference(columns);
    if (!column)
        return {};
    return ParquetTexts::tr("The column \"%1\" is not in both, or of another type.").arg(*column);
}
