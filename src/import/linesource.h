#pragma once

#include "charmask.h"
#include "importreport.h"
#include "textbytes.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <vector>

inline QString toQString(Text<char> text)
{
    return QString::fromLatin1(text.data(), int(text.size()));
}

inline QString toQString(Text<char16_t> text)
{
    return QString(reinterpret_cast<const QChar *>(text.data()), int(text.size()));
}

/// The lines of a text file as QTextStream would give them: in the encoding that a byte order
/// mark tells, otherwise the locale's. Reads in large blocks and decodes only lines that need
/// it. At most the first MiB of a line is kept.
class LineSource
{
public:
    enum class CarriageReturns {
        Dropped, ///< wherever they stand, as in a file opened in text mode
        Kept
    };

    enum class Decoding {
        WhereNeeded,
        Always ///< plain ASCII too, so that both roads through a grammar can be compared
    };

    LineSource(QIODevice &device, CarriageReturns carriageReturns,
               Decoding decoding = Decoding::WhereNeeded);
    ~LineSource();

    /// Moves on to the next line. False at the end and on a read error.
    bool next();

    /// Starts from the first line again, with a report of nothing.
    void rewind();

    // The account of the lines. One that brings no frame is empty, a comment behind "#", or of the
    // wrong shape unless something else is said of it before next().

    /// The number of the current line, counted from 1; 0 before the first.
    quint64 number() const { return account.lines; }
    /// The current line brings a frame.
    void keep()
    {
        current.isKept = true;
        ++account.frames;
        if (misreads != misreadsBefore)
            keepUnlikely();
    }
    /// Why the current line brings no frame.
    void leaveOut(ImportReport::Reason why) { current.reason = why; }
    /// Something of the frame in the current line is not as it is written.
    void change(ImportReport::Change what) { account.changed[what].add(number()); }
    /// Counts the current line as well, as next() would. Nothing more may be read.
    const ImportReport &finishReport();
    /// What is known of the lines before the current one.
    ImportReport &report() { return account; }

    /// Whether the current line has a line feed; without one it is the last line.
    bool endsWithLineFeed() const { return current.hasLineFeed; }

    /// Calls \a read with the current line, without its line feed, as Text<char> or
    /// Text<char16_t>, and returns what it returns. The text is valid until next().
    template <typename Read> auto visit(Read &&read) const
    {
        if (!current.isDecoded)
            return read(current.plain);
        const auto *characters = reinterpret_cast<const char16_t *>(current.decoded.utf16());
        return read(Text<char16_t>(characters, std::size_t(current.decoded.size())));
    }

private:
    bool moveOn();
    void settle();
    void keepUnlikely();
    void addTo(ImportReport::Lines &lines) const;
    bool fill();
    void scan(int start);
    void setLine(Text<char> line);
    Text<char> withoutCarriageReturns(Text<char> line);

    TextBytes bytes;
    const CarriageReturns carriageReturns;
    const Decoding decoding;

    QByteArray buffer;
    int lineStart = 0; // of the line that next() looks for
    int position = 0;  // behind the last line
    int size = 0;
    std::vector<int> lineFeeds; // their positions in the buffer
    std::size_t nextLineFeed = 0;
    bool allAscii = true; // everything read so far
    bool hasCarriageReturns = false;

    struct Line
    {
        Text<char> plain;
        QString decoded;
        QByteArray scratch;
        bool hasLineFeed = false;
        bool isDecoded = false;
        bool isKept = true;
        ImportReport::Reason reason = ImportReport::WrongShape; // where it is not kept
    };
    Line current;
    ImportReport account;
    quint64 &misreads; // of the thread that reads
    const quint64 misreadsAtBegin;
    quint64 misreadsBefore = misreadsAtBegin; // those of the lines before the current one
};
