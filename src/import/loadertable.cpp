#include "loadertable.h"

#include "busmasterreader.h"
#include "candumpreader.h"
#include "canhackerreader.h"
#include "cocttreader.h"
#include "genericreader.h"
#include "gvretreader.h"
#include "ixxatreader.h"
#include "kolvarreader.h"
#include "kvasercankingreader.h"
#include "kvasertxtreader.h"
#include "peakreader.h"
#include "plaintextreader.h"
#include "pythoncancsvreader.h"
#include "pythoncantextreader.h"
#include "vectorascreader.h"
#include "wiresharkcsvreader.h"

#include <QCoreApplication>

namespace {

constexpr auto textMode = LineSource::CarriageReturns::Dropped;
constexpr auto binaryMode = LineSource::CarriageReturns::Kept;

constexpr auto countsAsRead = TraceReader::CountsAsRead;
constexpr auto whenWhole = TraceReader::WhenWhole;

constexpr ImporterTexts coctt = {
    "CoCTTImporter",
    QT_TRANSLATE_NOOP("CoCTTImporter", "Import error occured at line %1 of file %2.")};
constexpr ImporterTexts generic = {
    "GenericFileImporter",
    QT_TRANSLATE_NOOP("GenericFileImporter", "Import error occured at line %1 of file %2.")};
constexpr ImporterTexts ixxat = {
    "IxxatFileImporter",
    QT_TRANSLATE_NOOP("IxxatFileImporter", "Import error occured at line %1 of file %2."),
    QT_TRANSLATE_NOOP("IxxatFileImporter",
                      "Import error occured. No valid column description found.")};
constexpr ImporterTexts peak = {
    "PeakTraceImporter",
    QT_TRANSLATE_NOOP("PeakTraceImporter", "Import error occured at line %1 of file %2."),
    QT_TRANSLATE_NOOP("PeakTraceImporter",
                      "Import error occured. No valid column description found.")};

constexpr TraceReader readers[] = {
    {DatachunkHelper::KolvarTxt, textMode, readKolvarTxt, readKolvarTxtTolerantly},
    {DatachunkHelper::PeakTrc10, binaryMode, refuseFileVersion10, readPeakTolerantly, &peak},
    {DatachunkHelper::PeakTrc11, binaryMode, importFileVersion11, readPeakTolerantly, &peak},
    {DatachunkHelper::PeakTrc12, binaryMode, importFileVersion12, readPeakTolerantly, &peak},
    {DatachunkHelper::PeakTrc13, binaryMode, importFileVersion13, readPeakTolerantly, &peak},
    {DatachunkHelper::PeakTrc20, binaryMode, importFileVersion20, readPeakTolerantly, &peak},
    {DatachunkHelper::PeakTrc21, binaryMode, importFileVersion21, readPeakTolerantly, &peak},
    {DatachunkHelper::SocketCanDump, textMode, readSocketCanDump, readSocketCanDumpTolerantly},
    {DatachunkHelper::KvaserTxtLog, textMode, readKvaserTxt, readKvaserTxtTolerantly},
    {DatachunkHelper::KvaserCanKingLog, textMode, readKvaserCanKing, readKvaserCanKingTolerantly},
    {DatachunkHelper::VectorAsc, textMode, readVectorAsc, readVectorAscTolerantly},
    {DatachunkHelper::VectorAscWithoutBitcount, textMode, readVectorAscWithoutBitcount,
     readVectorAscTolerantly},
    {DatachunkHelper::CoCTTLog, binaryMode, readCoCTTLog, readCoCTTLogTolerantly, &coctt,
     countsAsRead, whenWhole},
    {DatachunkHelper::IxxatTrace, binaryMode, readIxxatTrace, readIxxatTraceTolerantly, &ixxat,
     countsAsRead, whenWhole},
    {DatachunkHelper::WiresharkCsv, textMode, readWiresharkCsv, readWiresharkTolerantly},
    {DatachunkHelper::BusmasterLog, textMode, readBusmasterLog, readBusmasterLog},
    {DatachunkHelper::GvretCsv, textMode, readGvretCsv, readGvretCsv},
    {DatachunkHelper::CanHackerTrace, textMode, readCanHackerTrace, readCanHackerTrace},
    {DatachunkHelper::PythonCanCsv, textMode, readPythonCanCsv, readPythonCanCsv},
    {DatachunkHelper::PythonCanText, textMode, readPythonCanText, readPythonCanText},
    {DatachunkHelper::GenericFormat, binaryMode, readGenericFormat, readGenericFormatTolerantly,
     &generic, countsAsRead, whenWhole},
};

// Reads every type that has no row above.
constexpr TraceReader plainText = {
    DatachunkHelper::PcanExplorerTxt, textMode, readPlainText, readPlainText, nullptr,
    TraceReader::CountsAsFailed};

} // namespace

bool isTraceText(DatachunkHelper::ImportFileType type)
{
    return traceReaderFor(type).type == type;
}

const TraceReader &traceReaderFor(DatachunkHelper::ImportFileType type)
{
    for (const TraceReader &reader : readers) {
        if (reader.type == type)
            return reader;
    }
    return plainText;
}

TraceReader traceReaderFor(const TraceRequest &request)
{
    TraceReader reader = traceReaderFor(request.type);
    if (request.mode != DatachunkHelper::Tolerant || !reader.readTolerantly)
        return reader;
    reader.read = reader.readTolerantly;
    reader.carriageReturns = textMode;
    reader.verdict = countsAsRead;
    reader.delivery = TraceReader::AsRead;
    return reader;
}

std::vector<DatachunkHelper::ImportFileType> tolerantTypes()
{
    std::vector<DatachunkHelper::ImportFileType> types;
    TraceReader::Read last = nullptr; // those that share a reader stand together
    for (const TraceReader &reader : readers) {
        // A described layout takes whatever it is told to.
        const bool isKnown = reader.type != DatachunkHelper::GenericFormat;
        if (isKnown && reader.readTolerantly && reader.readTolerantly != last)
            types.push_back(reader.type);
        last = reader.readTolerantly;
    }
    return types;
}
