#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

class QIODevice;

/// Where the lines of a text begin, as sparsely as a bounded memory needs, so that any of them is
/// found in a file of any size. Lines end with a line feed and are counted from 1. A plain value.
class LineIndex
{
public:
    /// Of a text of \a bytes bytes that begins with \a beginning, which tells the encoding.
    LineIndex(qint64 bytes, const QByteArray &beginning);

    /// Takes the next bytes of the text; those of a wide encoding in whole characters.
    void add(const char *bytes, qint64 count);

    /// How many bytes were taken.
    qint64 taken() const { return end; }
    /// Line ends so far, and one more for what stands behind the last of them.
    quint64 lines() const { return lineCount; }
    /// The lines when there is nothing more to take: none stands behind the last line end then.
    quint64 linesInAll() const
    {
        return lineCount > 1 && lastEnd == end ? lineCount - 1 : lineCount;
    }

    /// Up to \a count lines from \a first on of those that were taken, as they are shown. Reads
    /// little more than one step of the index. A line whose beginning does not lie within that is
    /// a text that says so.
    QStringList read(QIODevice &file, quint64 first, int count) const;

    /// Characters of a line that are shown.
    static constexpr int mostShown = 1000;

private:
    struct Place
    {
        quint64 line;
        qint64 offset;
    };

    int findEnd(const char *bytes, int from, int size) const;
    QString textOf(const QByteArray &bytes) const;
    std::size_t placeOf(quint64 line) const;
    QStringList linesAt(QIODevice &file, std::size_t place, quint64 &next, quint64 behind) const;

    const qint64 step; // bytes between two places, at least
    bool isWide = false;
    bool isBigEndian = false;
    qint64 end = 0;
    qint64 lastEnd = 0; // behind the last line end
    quint64 lineCount = 1;
    std::vector<Place> places;
};
