#pragma once

#include <QDialog>

class QLineEdit;
class SourceView;

/// The text that a trace was read from, to look at.
class SourceDialog : public QDialog
{
    Q_OBJECT
public:
    SourceDialog(const QString &fileName, QWidget *parent);

    /// Counted from 1.
    void showLine(quint64 number);

    /// Whether lines of that file can be shown; not of a compressed one.
    static bool canShow(const QString &fileName);

private:
    SourceView *const view;
    QLineEdit *const line;
};
