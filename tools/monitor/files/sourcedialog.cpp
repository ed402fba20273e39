#include "sourcedialog.h"

#include "plaintexts.h"
#include "sourceview.h"

#include <QAction>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

SourceDialog::SourceDialog(const QString &fileName, QWidget *parent)
    : QDialog(parent), view(new SourceView(fileName, this)), line(new QLineEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("sourceText"));
    setWindowTitle(tr("Source text of %1").arg(shortName(fileName)));
    auto *goTo = new QLabel(tr("&Line:"), this);
    goTo->setBuddy(line);
    line->setObjectName(QStringLiteral("line"));
    line->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{1,15}")), line));
    line->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
    auto *state = new QLabel(this);
    state->setTextFormat(Qt::PlainText);
    connect(line, &QLineEdit::returnPressed, this, [this] {
        view->showLine(line->text().toULongLong());
        view->setFocus();
    });
    connect(view, &SourceView::told, state, &QLabel::setText);
    connect(view, &SourceView::currentLineChanged, this,
            [this](quint64 number) { line->setText(QString::number(number)); });
    auto *jump = new QAction(this);
    jump->setShortcut(QKeySequence(QStringLiteral("Ctrl+G")));
    connect(jump, &QAction::triggered, line, [this] {
        line->setFocus();
        line->selectAll();
    });
    addAction(jump);
    auto *top = new QHBoxLayout;
    top->addWidget(goTo);
    top->addWidget(line);
    top->addWidget(state, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(view, 1);
    view->setFocus();
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 35);
}

void SourceDialog::showLine(quint64 number)
{
    view->showLine(number);
}

bool SourceDialog::canShow(const QString &fileName)
{
    // Octal, which ends with its third digit.
    constexpr const char *beginnings[] = {"\x1F\x8B", "BZh", "\3757zXZ", "\x28\xB5\x2F\xFD",
                                          "PK\3\4"};
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.peek(8);
    for (const char *beginning : beginnings) {
        if (start.startsWith(beginning))
            return false;
    }
    return true;
}
