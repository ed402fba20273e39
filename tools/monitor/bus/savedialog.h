#pragma once

#include "recordingsaver.h"

#include <QDialog>

class QComboBox;
class QLabel;
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
    void chooseFolder();
    void check();

    QLineEdit *const name;
    QLineEdit *const folderEdit;
    QComboBox *const kind;
    QLabel *const remark;
    QPushButton *saveButton = nullptr;
};
