#include "lossquestion.h"

#include <QMessageBox>
#include <QPushButton>

LossQuestion::LossQuestion(QWidget *window) : QObject(window), window(window) { }

void LossQuestion::ask(const QString &text, const QStringList &losses,
                       const std::function<void()> &go)
{
    if (box && box->isVisible()) {
        box->raise();
        return;
    }
    box = new QMessageBox(QMessageBox::Warning, tr("Close"), text,
                          QMessageBox::Discard | QMessageBox::Cancel, window);
    box->setObjectName(QStringLiteral("lossQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(losses.join(QLatin1Char('\n')));
    box->button(QMessageBox::Discard)->setText(tr("C&lose all the same"));
    box->setDefaultButton(QMessageBox::Cancel);
    connect(box, &QMessageBox::finished, this, [go](int answer) {
        if (answer == QMessageBox::Discard)
            go();
    });
    box->open();
}
