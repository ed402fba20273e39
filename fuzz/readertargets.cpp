#include "loadertable.h"
#include "targets.h"

#include <QBuffer>
#include <QMetaEnum>

#include <tuple>

namespace {

using Type = DatachunkHelper::ImportFileType;

/// Keeps all that a reader reports, in order.
class Record : public TraceSink
{
public:
    bool message(const CAN::CanRxMessage &message) override
    {
        messages.push_back(message);
        return true;
    }
    void note(quint32 number, const QString &text) override { add('n', number, text); }
    void appendNote(quint32 number, const QString &text) override { add('a', number, text); }
    void fdFrames(bool seen) override { add('f', seen, {}); }
    bool turnEventLoop() override
    {
        ++turns;
        return true;
    }

    std::size_t messageCount() const { return messages.size(); }

    bool operator==(const Record &other) const
    {
        return turns == other.turns && texts == other.texts
            && std::equal(messages.begin(), messages.end(), other.messages.begin(),
                          other.messages.end(), same);
    }

private:
    using Text = std::tuple<char, quint32, QString, std::size_t>;

    void add(char kind, quint32 number, const QString &text)
    {
        texts.emplace_back(kind, number, text, messages.size());
    }

    static bool same(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b)
    {
        const auto fields = [](const CAN::CanRxMessage &m) {
            return std::tie(m.seconds, m.microseconds, m.id, m.length, m.remote, m.extended,
                            m.fdFrame, m.flagB, m.flagC, m.flagD, m.transmitted, m.messageNumber,
                            m.line);
        };
        return fields(a) == fields(b) && std::equal(a.data, std::end(a.data), b.data);
    }

    std::vector<CAN::CanRxMessage> messages;
    std::vector<Text> texts;
    int turns = 0;
};

std::pair<Outcome, Record> readBy(LineSource::Decoding decoding, const QByteArray &trace,
                                  const TraceRequest &request)
{
    QByteArray bytes = trace;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const TraceReader reader = traceReaderFor(request);
    LineSource lines(buffer, reader.carriageReturns, decoding);
    Record record;
    const Outcome result = reader.read(lines, record, request);
    const ImportReport &report = lines.finishReport();
    require(report.frames == record.messageCount()
                && report.frames + report.linesLeftOut() == report.lines,
            "every line is a frame or left out");
    return {result, record};
}

// A line of plain ASCII is read in place, any other one is decoded first: both have to give the
// same. The layout of a described trace is the first line of the input.
void compareRoads(Type type, const QByteArray &bytes)
{
    TraceRequest request{QStringLiteral("trace"), type, {}};
    QByteArray trace = bytes;
    if (type == DatachunkHelper::GenericFormat) {
        const int end = bytes.indexOf('\n');
        request.formatDescription = QString::fromUtf8(bytes.left(end));
        trace = end < 0 ? QByteArray() : bytes.mid(end + 1);
    }
    for (const auto mode : {DatachunkHelper::Strict, DatachunkHelper::Tolerant}) {
        request.mode = mode;
        const auto inPlace = readBy(LineSource::Decoding::WhereNeeded, trace, request);
        const auto decoded = readBy(LineSource::Decoding::Always, trace, request);
        require(inPlace.first.kind == decoded.first.kind
                    && inPlace.first.number == decoded.first.number,
                "both roads end alike");
        require(inPlace.second == decoded.second, "both roads give the same");
    }
}

// The first byte picks the ending of the file's name.
void detect(const QByteArray &bytes)
{
    static const QString endings[] = {QStringLiteral("input.trc"), QStringLiteral("input.txt")};
    const bool isTrc = !bytes.isEmpty() && bytes.at(0) == 't';
    DatachunkHelper helper;
    const Type type = helper.getImportFileType(inputFile(endings[isTrc ? 0 : 1], bytes.mid(1)));
    const bool isPeak = type >= DatachunkHelper::PeakTrc10 && type <= DatachunkHelper::PeakTrc21;
    require(type == DatachunkHelper::Unknown
                || (isPeak == isTrc && type != DatachunkHelper::Unassigned
                    && type != DatachunkHelper::GenericFormat),
            "detection gives a type of its table");
}

} // namespace

std::vector<FuzzTarget> readerTargets()
{
    std::vector<FuzzTarget> targets{{QStringLiteral("detection"), detect}};
    const auto types = QMetaEnum::fromType<Type>();
    for (int i = 0; i < types.keyCount(); ++i) {
        const auto type = Type(types.value(i));
        if (isTraceText(type) && type != DatachunkHelper::PeakTrc10)
            targets.push_back({QString::fromLatin1(types.key(i)).toLower(),
                               [type](const QByteArray &bytes) { compareRoads(type, bytes); }});
    }
    return targets;
}
