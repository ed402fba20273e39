#pragma once

#include "importreport.h"
#include "tracesorting.h"

#include <QDialog>

class QTextBrowser;
class SourceDialog;

/// What became of the lines of an imported trace. The numbers of lines show these in the source.
class ReportDialog : public QDialog
{
    Q_OBJECT
public:
    /// \a hasLines is false of a file whose lines cannot be shown.
    ReportDialog(const ImportSource &source, const ImportReport &report, bool hasLines,
                 QWidget *parent);

    /// Shows a line of the file, counted from 1.
    void showLine(quint64 number);

signals:
    /// The user wants it read in another way.
    void reopenWanted();

private:
    QWidget *buttons(bool hasLines);

    const ImportSource source;
    QTextBrowser *const browser;
    SourceDialog *lines = nullptr; // once it was asked for
};
