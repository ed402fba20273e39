#pragma once

#include <QWidget>

class QLineEdit;

/// A path that is written or chosen.
class PathEdit : public QWidget
{
    Q_OBJECT
public:
    enum Kind { Folder, ExistingFile };

    /// \a title is that of the dialog to choose from.
    PathEdit(Kind kind, const QString &title, QWidget *parent = nullptr);

    /// With "/" between the folders.
    QString path() const;
    void setPath(const QString &path);

signals:
    void changed();

private:
    void choose();

    const Kind kind;
    const QString title;
    QLineEdit *const edit;
};
