#pragma once

#include "datachunkglobal.h"

#include <QObject>
#include <QString>

/// Tells what kind of file a trace is, from the end of its name and from its content. Keeps no
/// state, changes no file and reports no errors; any thread.
class DATACHUNK_EXPORT DatachunkHelper
{
    Q_GADGET
public:
    /// What a save writes.
    enum SavedMessageType {
        CurrentMessages = 0, ///< what an export picked
        FullBuffer = 1,      ///< a full live buffer, rotated into a chunk
        PartialBuffer = 2    ///< a buffer of an import
    };
    Q_ENUM(SavedMessageType)

    /// What an export holds besides the messages.
    enum ExportOption { ExportWithNotes = 1 };
    /// Any of them, or none.
    Q_DECLARE_FLAGS(ExportOptions, ExportOption)
    Q_FLAG(ExportOptions)

    /// How texts are read. Strict readers go by the letter of what other programs of this kind do;
    /// tolerant ones take a line for a frame only if it has the shape of one, and keep all it says.
    enum ImportMode { Strict, Tolerant };
    Q_ENUM(ImportMode)

    /// The kinds of files that can be loaded or imported; docs/text-formats.md describes the texts.
    /// The numbers are part of the interface: a new type goes behind the last one.
    enum ImportFileType {
        ZipArchive, ///< of chunk files
        ChunkFile,
        KolvarTxt,
        Unassigned, ///< never found, and no import takes it
        PeakTrc10,  ///< found, but read tolerantly only
        PeakTrc11,
        PeakTrc12,
        PeakTrc13,
        PeakTrc20,
        PeakTrc21,
        PcanExplorerTxt,
        SocketCanDump,
        KvaserTxtLog,
        KvaserCanKingLog,
        VectorAsc,
        VectorAscWithoutBitcount,
        EmptyTxtFile,
        CoCTTLog,
        IxxatTrace,
        WiresharkCsv,
        GenericFormat, ///< chosen by the caller, never found
        Unknown,       ///< nothing that is known
        BusmasterLog,  ///< found by TraceRecognition only, as the next ones
        GvretCsv,      ///< the comma separated frames of GVRET and SavvyCAN
        CanHackerTrace,
        PythonCanCsv, ///< the comma separated frames of python-can's logger
        PythonCanText ///< the lines that python-can prints
    };
    Q_ENUM(ImportFileType)

    /// Decides by the end of the name (case-sensitive), then by the content.
    ImportFileType getImportFileType(QString fileName);

    /// The type for the file version in the first line of a PEAK trace.
    ImportFileType checkPeakVersion(QString fileName);

    /// The type of a text trace, found from its first 1048576 characters.
    ImportFileType checkTxtFile(QString fileName);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(DatachunkHelper::ExportOptions)
