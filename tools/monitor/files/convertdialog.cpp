#include "convertdialog.h"

#include "formatbox.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QUrl>

namespace {

const QString lastFolder = QStringLiteral("files/convertFolder");

} // namespace

ConvertDialog::ConvertDialog(QWidget *parent)
    : QDialog(parent), list(new QListWidget(this)),
      separate(new QRadioButton(tr("&Each into a file of its own, in the folder"), this)),
      merged(new QRadioButton(tr("All &merged by time, into the file"), this)),
      target(new QLineEdit(QSettings().value(lastFolder, QDir::homePath()).toString(), this)),
      format(new FormatBox(this)), remark(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("convert"));
    setWindowTitle(tr("Convert files"));
    setAcceptDrops(true);
    separate->setChecked(true);
    remark->setWordWrap(true);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    button = box->addButton(tr("&Convert"), QDialogButtonBox::AcceptRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(inputs());
    layout->addWidget(outputs());
    layout->addWidget(box);
    connect(box, &QDialogButtonBox::accepted, this, &ConvertDialog::choose);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(target, &QLineEdit::textChanged, this, &ConvertDialog::update);
    connect(merged, &QRadioButton::toggled, this, &ConvertDialog::update);
    connect(format, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ConvertDialog::update);
    update();
}

QWidget *ConvertDialog::inputs()
{
    auto *box = new QWidget(this);
    list->setObjectName(QStringLiteral("inputs"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setAccessibleName(tr("Files to convert"));
    auto *files = new QPushButton(tr("&Add files…"), box);
    auto *folder = new QPushButton(tr("Add &folder…"), box);
    auto *remove = new QPushButton(tr("&Remove"), box);
    connect(files, &QPushButton::clicked, this, &ConvertDialog::addFiles);
    connect(folder, &QPushButton::clicked, this, &ConvertDialog::addFolder);
    connect(remove, &QPushButton::clicked, this, &ConvertDialog::removeSelected);
    auto *column = new QVBoxLayout;
    for (QPushButton *each : {files, folder, remove}) {
        each->setAutoDefault(false);
        column->addWidget(each);
    }
    column->addStretch();
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins({});
    layout->addWidget(list, 1);
    layout->addLayout(column);
    return box;
}

QWidget *ConvertDialog::outputs()
{
    auto *box = new QWidget(this);
    auto *form = new QFormLayout(box);
    form->setContentsMargins({});
    merged->setObjectName(QStringLiteral("merged"));
    target->setObjectName(QStringLiteral("target"));
    target->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    auto *choose = new QPushButton(tr("&Browse…"), box);
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &ConvertDialog::browse);
    auto *line = new QHBoxLayout;
    line->addWidget(target, 1);
    line->addWidget(choose);
    auto *label = new QLabel(tr("&Into:"), box);
    label->setBuddy(target);
    form->addRow(separate);
    form->addRow(merged);
    form->addRow(label, line);
    form->addRow(tr("F&ormat:"), format);
    form->addRow(QString(), remark);
    return box;
}

void ConvertDialog::addPaths(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (list->findItems(path, Qt::MatchExactly).isEmpty())
            list->addItem(path);
    }
    update();
}

void ConvertDialog::setMerged(bool on)
{
    (on ? merged : separate)->setChecked(true);
    if (on)
        setWindowTitle(tr("Merge files"));
}

QStringList ConvertDialog::paths() const
{
    QStringList all;
    for (int i = 0; i < list->count(); ++i)
        all += list->item(i)->text();
    return all;
}

void ConvertDialog::addFiles()
{
    auto *dialog = new QFileDialog(this, tr("Files to convert"), target->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, &ConvertDialog::addPaths);
    dialog->open();
}

void ConvertDialog::addFolder()
{
    auto *dialog = new QFileDialog(this, tr("Folder of chunks to convert"), target->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::filesSelected, this, &ConvertDialog::addPaths);
    dialog->open();
}

void ConvertDialog::removeSelected()
{
    qDeleteAll(list->selectedItems());
    update();
}

void ConvertDialog::browse()
{
    auto *dialog = new QFileDialog(this, windowTitle(), target->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(merged->isChecked() ? QFileDialog::AnyFile : QFileDialog::Directory);
    if (merged->isChecked())
        dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    connect(dialog, &QFileDialog::fileSelected, target, &QLineEdit::setText);
    dialog->open();
}

void ConvertDialog::update()
{
    const QFileInfo file(target->text());
    const bool isMerged = merged->isChecked();
    QStringList remarks(format->limits());
    if (isMerged && file.isFile())
        remarks += paths().contains(target->text())
            ? tr("This is one of the files to read; choose another name.")
            : tr("The file exists already and will be replaced.");
    else if (isMerged && file.isDir())
        remarks += tr("This is a folder; add a name.");
    if (list->count() == 0)
        remarks = QStringList(tr("Add the files and folders to convert, or drop them here."));
    remarks.removeAll(QString());
    remark->setText(remarks.join(QLatin1Char(' ')));
    const bool hasPlace =
        isMerged ? !file.isDir() && !paths().contains(target->text()) : !file.isFile();
    button->setEnabled(list->count() > 0 && !target->text().isEmpty() && hasPlace);
}

void ConvertDialog::choose()
{
    format->remember();
    const QFileInfo file(target->text());
    QSettings().setValue(lastFolder,
                         merged->isChecked() ? file.absolutePath() : file.absoluteFilePath());
    ConvertOrder order;
    order.paths = paths();
    order.target = file.absoluteFilePath();
    order.isMerged = merged->isChecked();
    order.form.format = format->format();
    emit chosen(order);
    accept();
}

void ConvertDialog::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void ConvertDialog::dropEvent(QDropEvent *event)
{
    QStringList dropped;
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl &url : urls)
        dropped += url.toLocalFile();
    addPaths(dropped);
}
