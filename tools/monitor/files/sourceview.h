#pragma once

#include "sourcereader.h"

#include <QAbstractScrollArea>

/// The lines of a text file of any size with their numbers. Reads only what it shows.
class SourceView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit SourceView(const QString &fileName, QWidget *parent = nullptr);

    /// Marks a line, counted from 1, and shows it as soon as it is found; the last line where
    /// there are not as many.
    void showLine(quint64 number);

    quint64 currentLine() const { return current; }
    /// Of the current line; empty while it is not read.
    QString currentText() const;
    /// The current line goes to the clipboard.
    void copy() const;

signals:
    void currentLineChanged(quint64 number);
    /// How far lines are known, for the user.
    void told(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void takeCount(quint64 lines);
    void takePage(quint64 first, const QStringList &lines);
    void tellProgress(quint64 lines, qint64 done, qint64 total);
    void setCurrent(quint64 number);
    void makeVisible(quint64 number);
    void updateBars();
    void readPage();
    void moveBy(qint64 lines);
    quint64 topLine() const;
    int lineHeight() const;
    int linesInView() const;
    int numberWidth() const;

    SourceReader reader;
    quint64 count = 1; // of the lines that are known
    bool isComplete = false;
    quint64 current = 1;
    quint64 sought = 0; // a line to go to once it is known
    quint64 pageFirst = 1;
    QStringList page;
};
