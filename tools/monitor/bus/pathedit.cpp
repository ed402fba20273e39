#include "pathedit.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

PathEdit::PathEdit(Kind kind, const QString &title, QWidget *parent)
    : QWidget(parent), kind(kind), title(title), edit(new QLineEdit)
{
    auto *browse = new QPushButton(tr("&Browse…"));
    browse->setAutoDefault(false);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(edit, 1);
    layout->addWidget(browse);
    setFocusProxy(edit);
    connect(browse, &QPushButton::clicked, this, &PathEdit::choose);
    connect(edit, &QLineEdit::textChanged, this, &PathEdit::changed);
}

QString PathEdit::path() const
{
    return QDir::fromNativeSeparators(edit->text().trimmed());
}

void PathEdit::setPath(const QString &path)
{
    edit->setText(QDir::toNativeSeparators(path));
}

void PathEdit::choose()
{
    auto *dialog = new QFileDialog(this, title, path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(kind == Folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::ShowDirsOnly, kind == Folder);
    connect(dialog, &QFileDialog::fileSelected, this, &PathEdit::setPath);
    dialog->open();
}
