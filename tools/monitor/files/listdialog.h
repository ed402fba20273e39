#pragma once

#include <QDialog>

/// Sentences that are too many for a notice.
class ListDialog : public QDialog
{
    Q_OBJECT
public:
    ListDialog(const QString &title, const QStringList &lines, QWidget *parent);
};
