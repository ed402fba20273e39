#include "readback.h"

#include "canframe.h"
#include "storefixture.h"
#include "tracestream.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtEndian>

#include <algorithm>

namespace {

using Loss = TraceExport::Loss;

void setData(CAN::CanRxMessage &message, const QByteArray &bytes)
{
    std::copy(bytes.begin(), bytes.end(), message.data);
}

// Names are "can" and the line, for which the importer counts from 0.
quint16 lineNamed(const ImportReport &report, quint16 line)
{
    for (const ImportReport::Channel &channel : report.channels) {
        if (channel.line == line && channel.name.startsWith("can"))
            return channel.name.mid(3).toUShort();
    }
    return line;
}

ReadBack readText(DatachunkHelper::ImportFileType type, const QByteArray &bytes)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("trace");
    writeFile(name, bytes);
    TraceStream stream(name, type);
    stream.setMode(DatachunkHelper::Tolerant);
    ReadBack back;
    const auto take = [&back](const TraceItem &item) {
        back.messages.append({item.message, item.note});
        return true;
    };
    stream.read(take, [] { return true; });
    const ImportReport &report = stream.report();
    for (ReadBack::Message &item : back.messages)
        item.message.line = lineNamed(report, item.message.line);
    if (report.start.isValid())
        back.start = report.start.toMSecsSinceEpoch() * 1000;
    // A record has no place for the class that an error frame has in a candump log.
    back.isWhole = report.linesLost() == 0
        && report.changed[ImportReport::ChangedPayload].count == 0
        && report.changed[ImportReport::ChangedLength].count == 0
        && report.changed[ImportReport::ChangedTime].count == 0;
    return back;
}

ReadBack readJson(const QByteArray &bytes)
{
    ReadBack back;
    for (const QByteArray &line : bytes.chopped(bytes.isEmpty() ? 0 : 1).split('\n')) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        ReadBack::Message item;
        item.note = object["note"].toString();
        CAN::CanRxMessage &message = item.message;
        message.seconds = object["seconds"].toInt();
        message.microseconds = object["microseconds"].toInt();
        message.id = quint32(object["id"].toDouble());
        message.length = qint8(object["length"].toInt());
        message.line = quint16(object["line"].toInt());
        setData(message, QByteArray::fromHex(object["data"].toString().toLatin1()));
        message.extended = object["extended"].toBool();
        message.remote = object["remote"].toBool();
        message.fdFrame = object["fd"].toBool();
        message.flagB = object["flagB"].toBool();
        message.flagC = object["flagC"].toBool();
        message.flagD = object["flagD"].toBool();
        message.transmitted = object["transmitted"].toBool();
        if (!object.isEmpty())
            back.messages.append(item);
    }
    back.isWhole = true;
    return back;
}

// Takes a cell and the separator behind it from the front of \a rest.
QByteArray takeCell(QByteArray &rest)
{
    QByteArray cell;
    bool isQuoted = false;
    int at = 0;
    for (; at < rest.size() && (isQuoted || (rest.at(at) != ',' && rest.at(at) != '\n')); ++at) {
        if (rest.at(at) == '"') {
            if (!isQuoted && at > 0)
                cell += '"';
            isQuoted = !isQuoted;
        } else {
            cell += rest.at(at);
        }
    }
    rest.remove(0, at + 1);
    return cell;
}

ReadBack readCsv(QByteArray bytes)
{
    ReadBack back;
    QVector<QByteArray> titles;
    for (int i = 0; i < 13; ++i)
        titles.append(takeCell(bytes));
    while (!bytes.isEmpty()) {
        QMap<QByteArray, QByteArray> row;
        for (const QByteArray &title : titles)
            row[title] = takeCell(bytes);
        ReadBack::Message item;
        CAN::CanRxMessage &message = item.message;
        const QList<QByteArray> time = row["time"].split('.');
        message.seconds = time.at(0).toInt();
        message.microseconds = (row["time"].startsWith('-') ? -1 : 1) * time.value(1).toInt();
        message.line = row["line"].toUShort();
        message.transmitted = row["direction"] == "Tx";
        message.id = row["error"] == "1" ? CAN::errorFrameId : row["id"].toUInt(nullptr, 16);
        message.extended = row["extended"] == "1";
        message.fdFrame = row["fd"] == "1";
        message.flagC = row["brs"] == "1";
        message.flagB = row["esi"] == "1";
        message.remote = row["remote"] == "1";
        message.length = qint8(row["length"].toInt());
        setData(message, QByteArray::fromHex(row["data"]));
        item.note = QString::fromUtf8(row["note"]);
        back.messages.append(item);
    }
    back.isWhole = titles.first() == "time" && titles.last() == "note";
    return back;
}

template <typename Number> Number numberAt(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

// By the code; each is filled up to four bytes.
QMap<int, QByteArray> optionsAt(const QByteArray &block, int at)
{
    QMap<int, QByteArray> options;
    while (at + 4 <= block.size() && numberAt<quint16>(block, at) != 0) {
        const int size = numberAt<quint16>(block, at + 2);
        options[numberAt<quint16>(block, at)] = block.mid(at + 4, size);
        at += 4 + (size + 3) / 4 * 4;
    }
    return options;
}

ReadBack::Message packetOf(const QByteArray &block, const QVector<quint16> &lines)
{
    ReadBack::Message item;
    CAN::CanRxMessage &message = item.message;
    const quint64 time = quint64(numberAt<quint32>(block, 4)) << 32 | numberAt<quint32>(block, 8);
    message.seconds = qint32(time / 1000000);
    message.microseconds = qint32(time % 1000000);
    message.line = lines.value(int(numberAt<quint32>(block, 0)));
    const int size = int(numberAt<quint32>(block, 12));
    const QByteArray packet = block.mid(20, size);
    const auto id = qFromBigEndian<quint32>(packet.constData());
    message.id = id & 0x20000000 ? CAN::errorFrameId : id & 0x1FFFFFFF;
    message.extended = (id & 0x80000000) != 0;
    message.remote = (id & 0x40000000) != 0;
    message.length = packet.at(4);
    message.fdFrame = (packet.at(5) & 4) != 0;
    message.flagC = (packet.at(5) & 1) != 0;
    message.flagB = (packet.at(5) & 2) != 0;
    setData(message, packet.mid(8, message.length));
    const QMap<int, QByteArray> options = optionsAt(block, 20 + (size + 3) / 4 * 4);
    message.transmitted = (options[2].at(0) & 3) == 2;
    item.note = QString::fromUtf8(options[1]);
    return item;
}

ReadBack readPcapng(const QByteArray &bytes)
{
    ReadBack back;
    QVector<quint16> lines;
    int at = 0;
    while (at + 12 <= bytes.size()) {
        const auto type = numberAt<quint32>(bytes, at);
        const int size = int(numberAt<quint32>(bytes, at + 4));
        if (size < 12 || size % 4 != 0 || size > bytes.size() - at
            || numberAt<quint32>(bytes, at + size - 4) != quint32(size))
            return back;
        const QByteArray block = bytes.mid(at + 8, size - 12);
        if (type == 1)
            lines.append(optionsAt(block, 8)[2].mid(3).toUShort());
        if (type == 6)
            back.messages.append(packetOf(block, lines));
        at += size;
    }
    back.isWhole = at == bytes.size() && bytes.startsWith(QByteArray::fromHex("0a0d0d0a"));
    return back;
}

// Lengths that frames of the kind have.
bool hasLength(const CAN::CanRxMessage &message)
{
    const bool isClassic = message.id == CAN::errorFrameId || message.remote;
    const QVector<int> beyondClassic{12, 16, 20, 24, 32, 48, 64};
    return (message.length >= 0 && message.length <= 8)
        || (!isClassic && beyondClassic.contains(message.length));
}

bool samePayload(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b, int size)
{
    return std::equal(a.data, a.data + size, b.data);
}

} // namespace

ReadBack readBack(TraceExport::Format format, const QByteArray &bytes)
{
    switch (format) {
    case TraceExport::Candump:
    case TraceExport::CandumpScreen:
        return readText(DatachunkHelper::SocketCanDump, bytes);
    case TraceExport::VectorAsc:
        return readText(DatachunkHelper::VectorAscWithoutBitcount, bytes);
    case TraceExport::PeakTrc11:
    case TraceExport::PeakTrc21:
        return readText(DatachunkHelper::PeakTrc21, bytes);
    case TraceExport::Csv:
        return readCsv(bytes);
    case TraceExport::JsonLines:
        return readJson(bytes);
    case TraceExport::Pcapng:
        break;
    }
    return readPcapng(bytes);
}

QVector<Loss> differences(const ReadBack::Message &written, const ReadBack::Message &read,
                          const ReadTime &time)
{
    const CAN::CanRxMessage &a = written.message;
    const CAN::CanRxMessage &b = read.message;
    const bool isError = a.id == CAN::errorFrameId;
    const bool isRemote = !isError && a.remote;
    QVector<Loss> found;
    const auto addIf = [&found](bool differs, Loss loss) {
        if (differs)
            found.append(loss);
    };
    addIf(a.transmitted != b.transmitted, TraceExport::Direction);
    addIf(written.note != read.note,
          read.note.isEmpty() ? TraceExport::Note : TraceExport::NoteCut);
    addIf(a.line != b.line, TraceExport::Line);
    addIf(isError && b.length == 0 && a.length > 0, TraceExport::ErrorType);
    addIf(!isError && a.extended != b.extended, TraceExport::StandardIdentifier);
    addIf(!isError && !isRemote && a.fdFrame != b.fdFrame, TraceExport::LongFrame);
    addIf(isRemote && a.fdFrame != b.fdFrame, TraceExport::RemoteFd);
    addIf(isRemote && !samePayload(a, b, CAN::payloadSize(a)), TraceExport::RemotePayload);
    addIf(a.length != b.length && !hasLength(a), TraceExport::Length);
    const bool isOtherError =
        isError && (a.extended != b.extended || a.remote != b.remote || a.fdFrame != b.fdFrame);
    addIf(isOtherError || a.flagB != b.flagB || a.flagC != b.flagC || a.flagD != b.flagD,
          TraceExport::Flags);
    const qint64 difference = CAN::timeOf(a) - time.read;
    addIf(time.start != 0, TraceExport::StartTime);
    addIf(difference < 0 || difference >= time.unit, TraceExport::Time);
    addIf(difference > 0 && difference < time.unit, TraceExport::TimeDigits);
    const int common = isError ? CAN::payloadSize(b) : CAN::payloadSize(a);
    const auto isSet = [](quint8 byte) { return byte != 0; };
    addIf(a.id != b.id || (!isError && a.remote != b.remote)
              || (!isRemote && !samePayload(a, b, common))
              || std::any_of(b.data + common, std::end(b.data), isSet),
          TraceExport::lossCount);
    return found;
}
