#include "savedialog.h"

#include "pathedit.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QLatin1String archiveSuffix(".zip");

} // namespace

SaveDialog::SaveDialog(const QString &proposed, const QString &folder, QWidget *parent)
    : QDialog(parent), name(new QLineEdit(proposed)),
      folderEdit(new PathEdit(PathEdit::Folder, tr("Folder for recordings"))), kind(new QComboBox),
      remark(new QLabel)
{
    setWindowTitle(tr("Save recording"));
    setObjectName(QStringLiteral("saveDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    name->setObjectName(QStringLiteral("name"));
    folderEdit->setPath(folder);
    folderEdit->setObjectName(QStringLiteral("folder"));
    kind->setObjectName(QStringLiteral("kind"));
    kind->addItem(tr("Folder of chunk files"));
    kind->addItem(tr("ZIP archive, smaller and slower"));
    remark->setWordWrap(true);
    auto *form = new QFormLayout;
    form->addRow(tr("&Name:"), name);
    form->addRow(tr("&In folder:"), folderEdit);
    form->addRow(tr("&As:"), kind);
    form->addRow(QString(), remark);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    saveButton = buttons->button(QDialogButtonBox::Save);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    saveButton->setDefault(true);
    setMinimumWidth(fontMetrics().averageCharWidth() * 70);
    connect(name, &QLineEdit::textChanged, this, &SaveDialog::check);
    connect(folderEdit, &PathEdit::changed, this, &SaveDialog::check);
    connect(kind, &QComboBox::currentTextChanged, this, &SaveDialog::check);
    name->selectAll();
    check();
}

SaveTarget SaveDialog::target() const
{
    SaveTarget target;
    target.isArchive = kind->currentIndex() == 1;
    target.path = QDir(folder()).absoluteFilePath(name->text().trimmed());
    if (target.isArchive && !target.path.endsWith(archiveSuffix))
        target.path += archiveSuffix;
    return target;
}

QString SaveDialog::folder() const
{
    return folderEdit->path();
}

void SaveDialog::check()
{
    const bool isNamed = !name->text().trimmed().isEmpty() && !folder().isEmpty();
    const SaveTarget to = target();
    const bool isTaken = isNamed && QFileInfo::exists(to.path);
    // An archive may be replaced; in a folder two recordings would be mixed.
    const bool isGood = isNamed && (!isTaken || (to.isArchive && QFileInfo(to.path).isFile()));
    if (isTaken)
        remark->setText(isGood ? tr("The archive of that name will be replaced.")
                               : tr("There is something of that name already."));
    else
        remark->clear();
    saveButton->setEnabled(isGood);
}
