#include "detection.h"

#include "chunknames.h"
#include "linesource.h"
#include "regularfile.h"

#include <QTextStream>

namespace {

constexpr qint64 headSize = 1048576;
constexpr char kolvarHeader[] = "# timestamp id (dlc): data";
constexpr char wiresharkHeader[] =
    R"("No.","Time","Source","Destination","Protocol","Length","Info")";

QLatin1String ascii(const char *text)
{
    return QLatin1String(text);
}

DatachunkHelper::ImportFileType peakType(uint version)
{
    switch (version) {
    case 10:
        return DatachunkHelper::PeakTrc10;
    case 11:
        return DatachunkHelper::PeakTrc11;
    case 12:
        return DatachunkHelper::PeakTrc12;
    case 13:
        return DatachunkHelper::PeakTrc13;
    case 20:
        return DatachunkHelper::PeakTrc20;
    case 21:
        return DatachunkHelper::PeakTrc21;
    default:
        return DatachunkHelper::Unknown;
    }
}

// Whether a line begins as candump's do: with "(12.5)" or with an interface name like "can0".
bool beginsLikeCandump(const QString &line)
{
    const QString token = line.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
    if (token.startsWith(QLatin1Char('(')) && token.endsWith(QLatin1Char(')')))
        return true;
    if (!token.contains(ascii("can")))
        return false;
    bool isNumber = false;
    QString(token).remove(ascii("can")).toUInt(&isNumber, 0);
    return isNumber;
}

DatachunkHelper::ImportFileType typeOfText(const QString &head)
{
    if (head.contains(ascii("PCAN-Explorer")))
        return DatachunkHelper::PcanExplorerTxt;
    const QString first = head.section(QLatin1Char('\n'), 0, 0, QString::SectionSkipEmpty);
    if (first.isEmpty())
        return DatachunkHelper::EmptyTxtFile;
    if (first.contains(ascii(kolvarHeader)))
        return DatachunkHelper::KolvarTxt;
    if (first.contains(ascii(wiresharkHeader)))
        return DatachunkHelper::WiresharkCsv;
    if (head.contains(ascii("Test CAN")))
        return DatachunkHelper::CoCTTLog;
    if (head.startsWith(ascii("\"Bus\",")) || head.startsWith(ascii("Bus,No")))
        return DatachunkHelper::IxxatTrace;
    if (head.contains(ascii("Kvaser")))
        return DatachunkHelper::KvaserTxtLog;
    const QString simplified = first.simplified();
    if (simplified.endsWith(QLatin1Char('R')) || simplified.endsWith(QLatin1Char('T')))
        return DatachunkHelper::KvaserCanKingLog;
    if (beginsLikeCandump(first))
        return DatachunkHelper::SocketCanDump;
    if (head.contains(ascii("BitCount")))
        return DatachunkHelper::VectorAsc;
    if (head.contains(ascii("Triggerblock"), Qt::CaseInsensitive))
        return DatachunkHelper::VectorAscWithoutBitcount;
    return DatachunkHelper::Unknown;
}

using Look = DatachunkHelper::ImportFileType (*)(QIODevice &content);

DatachunkHelper::ImportFileType typeOfHead(QIODevice &content)
{
    QTextStream stream(&content);
    return typeOfText(stream.read(headSize));
}

DatachunkHelper::ImportFileType versionOfPeak(QIODevice &content)
{
    LineSource lines(content, LineSource::CarriageReturns::Kept);
    if (!lines.next())
        return DatachunkHelper::Unknown;
    QString line = lines.visit([](auto text) { return toQString(text); });
    if (lines.endsWithLineFeed() && line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    if (!line.contains(ascii("FILEVERSION")))
        return DatachunkHelper::Unknown;
    QString version = line.section(QLatin1Char('='), -1);
    version.remove(QLatin1Char('.'));
    // toUInt would pass over a blank at the end, and no version ends with one.
    if (version.isEmpty() || version.at(version.size() - 1).isSpace())
        return DatachunkHelper::Unknown;
    return peakType(version.toUInt());
}

// What the end of a name has the content looked at by; null for no name of a text.
Look lookFor(const QString &fileName)
{
    if (fileName.endsWith(ascii("trc")))
        return versionOfPeak;
    for (const char *ending : {"txt", "log", "asc", "csv"}) {
        if (fileName.endsWith(ascii(ending)))
            return typeOfHead;
    }
    return nullptr;
}

DatachunkHelper::ImportFileType lookInto(const QString &fileName, Look look)
{
    RegularFile file(fileName);
    return look && file.openForReading() ? look(file) : DatachunkHelper::Unknown;
}

} // namespace

DatachunkHelper::ImportFileType DatachunkHelper::getImportFileType(QString fileName)
{
    if (isChunkName(fileName))
        return ChunkFile;
    if (fileName.endsWith(ascii("zip")))
        return ZipArchive;
    return lookInto(fileName, lookFor(fileName));
}

DatachunkHelper::ImportFileType DatachunkHelper::checkPeakVersion(QString fileName)
{
    return lookInto(fileName, versionOfPeak);
}

DatachunkHelper::ImportFileType DatachunkHelper::checkTxtFile(QString fileName)
{
    return lookInto(fileName, typeOfHead);
}

DatachunkHelper::ImportFileType strictTypeOf(const QString &name, QIODevice &content)
{
    if (isChunkName(name))
        return DatachunkHelper::ChunkFile;
    const Look look = lookFor(name);
    return look ? look(content) : DatachunkHelper::Unknown;
}
