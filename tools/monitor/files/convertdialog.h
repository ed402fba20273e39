#pragma once

#include "converting.h"

#include <QDialog>

class FormatBox;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

/// Asks which files are to be written in another format, one by one or merged, without opening
/// them.
class ConvertDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ConvertDialog(QWidget *parent);

    /// Adds files and folders to those that are converted.
    void addPaths(const QStringList &paths);
    /// Whether all become one file, in order of time.
    void setMerged(bool on);

signals:
    void chosen(const ConvertOrder &order);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *inputs();
    QWidget *outputs();
    void addFiles();
    void addFolder();
    void removeSelected();
    void browse();
    void update();
    void choose();
    QStringList paths() const;

    QListWidget *const list;
    QRadioButton *const separate;
    QRadioButton *const merged;
    QLineEdit *const target;
    FormatBox *const format;
    QLabel *const remark;
    QPushButton *button = nullptr;
};
