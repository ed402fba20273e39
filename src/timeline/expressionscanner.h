#pragma once

#include "bytepattern.h"
#include "traceexpression.h"

#include <QCoreApplication>

/// Goes through the text of an expression from left to right and keeps the first error. What takes
/// something passes the blanks in front of it; the text must outlive the scanner.
class ExpressionScanner
{
    Q_DECLARE_TR_FUNCTIONS(TraceExpression)
public:
    enum class Notation { Hexadecimal, Decimal, Seconds };

    explicit ExpressionScanner(QStringView text) : text(text) { }

    bool atEnd();
    /// Where the next thing begins.
    int position();
    /// Whether \a symbol comes next.
    bool sees(QLatin1String symbol);
    bool take(QLatin1String symbol);
    /// The letters and digits that come next, or nothing.
    QStringView peekWord();
    bool seesWord(QLatin1String word);
    bool takeWord(QLatin1String word);
    /// Passes the word that peekWord() has given.
    void pass(QStringView word) { at = position() + int(word.size()); }

    /// Whether a number may begin here.
    bool seesNumber(Notation notation);
    /// Takes a number of at most \a highest, in microseconds for Seconds. False is an error, which
    /// is told then, here and below.
    bool takeNumber(Notation notation, qint64 highest, qint64 &value);
    /// Takes a text in quotes, in which a quote is written twice.
    bool takeQuoted(QString &content);
    /// Takes a quoted pattern of 1 to 64 bytes.
    bool takePattern(BytePattern &pattern);

    /// As much of \a word as a sentence bears.
    static QString shown(QStringView word);

    /// Keeps the error at \a position of the text, unless there is one. Returns false.
    bool fail(int position, const QString &what);
    bool failHere(const QString &what) { return fail(position(), what); }
    const TraceExpression::Error &error() const { return firstError; }

private:
    bool takeDigits(Notation notation, qint64 highest, qint64 &value);
    bool takeSeconds(qint64 highest, qint64 &value);
    bool takeFraction(qint64 &microseconds);
    bool failTooHigh(int position, Notation notation, qint64 highest);
    bool takePatternByte(BytePattern &pattern);
    bool takeNibble(quint8 &value, quint8 &mask);

    QStringView text;
    int at = 0;
    TraceExpression::Error firstError;
};
