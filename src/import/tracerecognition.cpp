#include "tracerecognition.h"

#include "chunknames.h"
#include "detection.h"
#include "loadertable.h"
#include "unpackedfile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QMetaEnum>

#include <algorithm>

namespace {

constexpr qint64 headSize = 192LL * 1024;
constexpr qint64 sampleSize = 32LL * 1024;
constexpr int sampleCount = 3;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TraceRecognition)
};

QString nameOf(DatachunkHelper::ImportFileType type)
{
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    return QLatin1String(types.valueToKey(type));
}

// Files that are no traces of ours, by their first bytes, and what their user can do.
struct ForeignFile
{
    const char *start;
    int size;
    const char *advice;
};

constexpr ForeignFile foreignFiles[] = {
    {"LOGG", 4,
     QT_TRANSLATE_NOOP("TraceRecognition",
                       "This is a binary log (BLF). Export it as an ASC text and import that.")},
    {"MDF     ", 8,
     QT_TRANSLATE_NOOP("TraceRecognition",
                       "This is a measurement file (MDF). Export its frames as an ASC text and "
                       "import that.")},
    {"\xD4\xC3\xB2\xA1", 4,
     QT_TRANSLATE_NOOP("TraceRecognition",
                       "This is a packet capture (pcap). Export it as CSV text and import that.")},
    {"\x0A\x0D\x0D\x0A", 4,
     QT_TRANSLATE_NOOP(
         "TraceRecognition",
         "This is a packet capture (pcapng). Export it as CSV text and import that.")},
};

// In such an encoding a byte that looks like a line feed may be half of a character.
bool isWide(const QByteArray &sample)
{
    return sample.startsWith("\xFF\xFE") || sample.startsWith("\xFE\xFF");
}

// The beginning, and whole lines from further on.
QByteArray sampleOf(QFile &file)
{
    QByteArray sample = file.read(headSize);
    if (file.size() <= sample.size() || isWide(sample))
        return sample;
    sample.truncate(sample.lastIndexOf('\n') + 1);
    for (int i = 1; i <= sampleCount; ++i) {
        file.seek(headSize + (file.size() - headSize - sampleSize) * i / sampleCount);
        QByteArray block = file.read(sampleSize);
        block.truncate(block.lastIndexOf('\n') + 1);
        sample += block.mid(block.indexOf('\n') + 1);
    }
    return sample;
}

bool isBinary(const QByteArray &sample)
{
    return sample.contains('\0') && !isWide(sample);
}

// Takes nothing but the first line that brings a message.
class FirstFrameSink : public TraceSink
{
public:
    explicit FirstFrameSink(const LineSource &lines) : lines(lines) { }

    bool message(const CAN::CanRxMessage &) override
    {
        if (line == 0) {
            line = lines.number();
            text = lines.visit(
                [](auto line) { return toQString(line.substr(0, ImportReport::mostCharacters)); });
        }
        return true;
    }
    void note(quint32, const QString &) override { }
    void appendNote(quint32, const QString &) override { }
    void fdFrames(bool) override { }
    bool turnEventLoop() override { return true; }

    quint64 line = 0;
    QString text;

private:
    const LineSource &lines;
};

struct Candidate
{
    TraceRecognition found;
    qint64 score = 0;
};

// A frame of which something had to be changed speaks half as much for a type, and of two types
// that take the same frames the one that knows the other lines as well is right.
qint64 scoreOf(const ImportReport &report)
{
    constexpr qint64 forFrame = 1 << 20; // more than the lines of any sample
    qint64 score = qint64(report.frames) * forFrame - qint64(report.linesLost());
    for (const ImportReport::Lines &changed : report.changed)
        score -= qint64(changed.count) * forFrame / 2;
    return score;
}

Candidate tryType(DatachunkHelper::ImportFileType type, QByteArray &sample)
{
    const TraceRequest request{{}, type, {}, DatachunkHelper::Tolerant};
    const TraceReader reader = traceReaderFor(request);
    QBuffer buffer(&sample);
    buffer.open(QIODevice::ReadOnly);
    LineSource lines(buffer, reader.carriageReturns);
    FirstFrameSink sink(lines);
    reader.read(lines, sink, request);
    const ImportReport &report = lines.finishReport();
    // Among many lines of anything some look like a frame by chance.
    constexpr quint64 mostLostForFrame = 8;
    if (report.frames == 0 || report.linesLost() > report.frames * mostLostForFrame)
        return {};
    TraceRecognition found;
    found.type = type;
    found.percent = int((report.lines - report.linesLost()) * 100 / report.lines);
    found.line = sink.line;
    found.lineText = sink.text;
    found.explanation =
        Texts::tr("Line %1 is a frame of the type %2, and %3 of the %4 lines looked at "
                  "are frames.")
            .arg(found.line)
            .arg(nameOf(type))
            .arg(report.frames)
            .arg(report.lines);
    return {found, scoreOf(report)};
}

TraceRecognition byContent(QByteArray &sample, DatachunkHelper::ImportFileType strict)
{
    Candidate best;
    if (isTraceText(strict))
        best = tryType(strict, sample);
    for (const DatachunkHelper::ImportFileType type : tolerantTypes()) {
        Candidate candidate = tryType(type, sample);
        const bool isFrame = candidate.found.type != DatachunkHelper::Unknown;
        if (isFrame
            && (best.found.type == DatachunkHelper::Unknown || candidate.score > best.score))
            best = std::move(candidate);
    }
    return best.found;
}

TraceRecognition recognised(DatachunkHelper::ImportFileType type, const char *explanation)
{
    TraceRecognition found;
    found.type = type;
    found.percent = 100;
    found.explanation = Texts::tr(explanation);
    return found;
}

TraceRecognition refused(const QString &explanation)
{
    TraceRecognition found;
    found.explanation = explanation;
    return found;
}

TraceRecognition ofSample(QByteArray &sample, DatachunkHelper::ImportFileType strict)
{
    if (sample.isEmpty())
        return refused(Texts::tr("The file is empty."));
    for (const ForeignFile &foreign : foreignFiles) {
        if (sample.startsWith(QByteArray::fromRawData(foreign.start, foreign.size)))
            return refused(Texts::tr(foreign.advice));
    }
    if (isBinary(sample))
        return refused(Texts::tr("The file is no text, and of no kind that is known."));
    const TraceRecognition found = byContent(sample, strict);
    if (found.type != DatachunkHelper::Unknown)
        return found;
    return refused(Texts::tr("None of the lines looked at is a frame of a known format. A text of "
                             "fields between blanks can be read by describing its layout."));
}

TraceRecognition chunkFile()
{
    return recognised(DatachunkHelper::ChunkFile,
                      QT_TRANSLATE_NOOP("TraceRecognition",
                                        "The name of the file ends as that of a chunk file."));
}

// To look further on it would have to be unpacked up to there.
TraceRecognition insideOf(UnpackedFile &file)
{
    if (isChunkName(file.name()))
        return chunkFile();
    const DatachunkHelper::ImportFileType strict = strictTypeOf(file.name(), file);
    file.seek(0);
    constexpr qint64 mostRead = headSize + sampleCount * sampleSize;
    QByteArray sample = file.read(mostRead);
    if (sample.size() == mostRead && !isWide(sample) && sample.contains('\n'))
        sample.truncate(sample.lastIndexOf('\n') + 1);
    if (sample.isEmpty() && !file.readErrorText().isEmpty())
        return refused(file.readErrorText());
    return ofSample(sample, strict);
}

} // namespace

TraceRecognition TraceRecognition::of(const QString &fileName)
{
    UnpackedFile file(fileName);
    const bool isOpen = file.openForReading();
    if (!isOpen && file.refusal().isEmpty())
        return refused(Texts::tr("The file cannot be opened: %1").arg(file.errorString()));
    if (isChunkName(fileName))
        return chunkFile();
    if (!isOpen)
        return refused(file.refusal());
    if (file.isCompressed()) {
        TraceRecognition found = insideOf(file);
        const QString compressed =
            Texts::tr("The file is compressed (%1).").arg(file.compression());
        found.explanation = compressed + QLatin1Char(' ') + found.explanation;
        return found;
    }
    const DatachunkHelper::ImportFileType strict = DatachunkHelper().getImportFileType(fileName);
    QByteArray sample = sampleOf(file.packed());
    if (strict == DatachunkHelper::ZipArchive || sample.startsWith("PK\x03\x04"))
        return recognised(
            DatachunkHelper::ZipArchive,
            QT_TRANSLATE_NOOP("TraceRecognition", "The file begins or is named as a ZIP archive."));
    return ofSample(sample, strict);
}

TraceRecognition TraceRecognition::strictly(const QString &fileName)
{
    TraceRecognition found;
    UnpackedFile file(fileName);
    const bool isOpen = !isChunkName(fileName) && file.openForReading();
    if (!isOpen && !file.refusal().isEmpty())
        return refused(file.refusal());
    found.type = isOpen && file.isCompressed() ? strictTypeOf(file.name(), file)
                                               : DatachunkHelper().getImportFileType(fileName);
    return found;
}
