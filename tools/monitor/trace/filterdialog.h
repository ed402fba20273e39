#pragma once

#include <QDialog>

class QPushButton;
class QTableWidget;

/// The filters that are kept, to be named, written and taken away; they are kept as they stand here
/// when it is accepted.
class FilterDialog : public QDialog
{
    Q_OBJECT
public:
    explicit FilterDialog(QWidget *parent = nullptr);

    void accept() override;

private:
    void removeRow();
    void check();

    QTableWidget *const table;
    QPushButton *const remove;
    QPushButton *keep = nullptr;
};
