#include "reportdialog.h"

#include "plaintexts.h"
#include "reporthtml.h"
#include "sourcedialog.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

ReportDialog::ReportDialog(const ImportSource &source, const ImportReport &report, bool hasLines,
                           QWidget *parent)
    : QDialog(parent), source(source), browser(new QTextBrowser(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("importReport"));
    setWindowTitle(tr("Import report of %1").arg(shortName(source.path)));
    browser->setOpenLinks(false);
    browser->setHtml(reportHtml(source, report, hasLines));
    connect(browser, &QTextBrowser::anchorClicked, this,
            [this](const QUrl &link) { showLine(link.path().toULongLong()); });
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(browser);
    layout->addWidget(buttons(hasLines));
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 30);
}

QWidget *ReportDialog::buttons(bool hasLines)
{
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    box->button(QDialogButtonBox::Close)->setDefault(true);
    auto *copy = box->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(browser->toPlainText()); });
    auto *show = box->addButton(tr("&Source text"), QDialogButtonBox::ActionRole);
    show->setObjectName(QStringLiteral("showSource"));
    show->setEnabled(hasLines);
    connect(show, &QPushButton::clicked, this, [this] { showLine(1); });
    auto *reopen = box->addButton(tr("&Read in another way…"), QDialogButtonBox::ActionRole);
    connect(reopen, &QPushButton::clicked, this, &ReportDialog::reopenWanted);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::close);
    return box;
}

void ReportDialog::showLine(quint64 number)
{
    if (!lines) {
        lines = new SourceDialog(source.path, this);
        lines->setAttribute(Qt::WA_DeleteOnClose, false);
    }
    lines->showLine(number);
    lines->show();
    lines->raise();
    lines->activateWindow();
}
