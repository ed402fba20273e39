#pragma once

#include "datachunkglobal.h"
#include "datachunkhelper.h"

#include <QString>

/// What a file looks like, and why: for whoever has to choose how to import it, or wants to know
/// why that cannot be done. A plain value.
///
/// Where DatachunkHelper goes by words in the text, this tries the tolerant readers on the
/// beginning of the file and on samples of the rest, 300 kB at the most, and takes the one that
/// finds most frames. So a word in a comment decides nothing.
struct DATACHUNK_EXPORT TraceRecognition
{
    /// Looks at a file, and changes nothing. Of a compressed one it is what is inside that is
    /// looked at, its first 300 kB: gzip, bzip2, xz, zstd, and a ZIP archive of one file and no
    /// chunks. Any thread.
    static TraceRecognition of(const QString &fileName);

    /// The type that DatachunkHelper gives a file, and a compressed one for what is inside and what
    /// that is called. Explains only why a compressed file is refused. Any thread.
    static TraceRecognition strictly(const QString &fileName);

    /// What takes the file when it is read tolerantly; Unknown when nobody does.
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;

    /// How many of 100 of the lines looked at are frames, headers, comments and empty lines of that
    /// type; 100 for what is recognised by its first bytes.
    int percent = 0;

    quint64 line = 0; ///< the first line that is a frame, counted from 1; 0 where none decided
    QString lineText; ///< that line, its first 200 characters

    /// One sentence, behind one on the compression where there is any: why the type is taken, or
    /// why nobody takes the file and what to do.
    QString explanation;
};
