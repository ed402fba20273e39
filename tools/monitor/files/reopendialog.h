#pragma once

#include "tracesorting.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;

/// Asks how a file is to be read where it was not recognised, or wrongly.
class ReopenDialog : public QDialog
{
    Q_OBJECT
public:
    /// \a source is how it was read so far, or would be.
    ReopenDialog(const ImportSource &source, QWidget *parent);

signals:
    void chosen(const ImportSource &source);

private:
    void choose();
    void updateFields();
    DatachunkHelper::ImportFileType type() const;

    const ImportSource before;
    QComboBox *const types;
    QCheckBox *const strict;
    QLineEdit *const format;
};
