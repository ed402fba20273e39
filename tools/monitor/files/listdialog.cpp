#include "listdialog.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

ListDialog::ListDialog(const QString &title, const QStringList &lines, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    auto *text = new QPlainTextEdit(lines.join(QLatin1Char('\n')), this);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(box);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 20);
}
