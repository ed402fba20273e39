#pragma once

#include "recordingsaver.h"

#include <QDialog>

class QComboBox;
class QLabel;
class PathEdit;
class QLineEdit;
class QPushButton;

/// Asks where a recording is to be saved, and as what.
class SaveDialog : public QDialog
{
    Q_OBJECT
public:
    /// \a name is proposed.
    SaveDialog(const QString &name, const QString &folder, QWidget *parent);

    SaveTarget target() const;
    QString folder() const;

private:
    void check();

    QLineEdit *const name;
    PathEdit *const folderEdit;
    QComboBox *const kind;
    QLabel *const remark;
    QPushButton *saveButton = nullptr;
};
