#include "reopendialog.h"

#include "plaintexts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPushButton>

ReopenDialog::ReopenDialog(const ImportSource &source, QWidget *parent)
    : QDialog(parent), before(source), types(new QComboBox(this)),
      strict(new QCheckBox(tr("By the &letter, as other programs read it"), this)),
      format(new QLineEdit(source.formatDescription, this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("reopen"));
    setWindowTitle(tr("Read %1 as").arg(shortName(source.path)));
    const auto all = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    for (int i = 0; i < all.keyCount(); ++i) {
        const auto type = DatachunkHelper::ImportFileType(all.value(i));
        if (isForeignType(type) && type != DatachunkHelper::ZipArchive
            && type != DatachunkHelper::ChunkFile)
            types->addItem(QLatin1String(all.key(i)), all.value(i));
    }
    types->model()->sort(0);
    types->setObjectName(QStringLiteral("type"));
    types->setCurrentIndex(std::max(0, types->findData(int(source.type))));
    strict->setChecked(source.mode == DatachunkHelper::Strict);
    strict->setObjectName(QStringLiteral("strict"));
    format->setObjectName(QStringLiteral("description"));
    format->setPlaceholderText(tr("what stands in the fields of a line"));
    auto *box = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    connect(box, &QDialogButtonBox::accepted, this, &ReopenDialog::choose);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(types, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ReopenDialog::updateFields);
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("&Type:"), types);
    layout->addRow(tr("&Description:"), format);
    layout->addRow(QString(), strict);
    layout->addRow(box);
    updateFields();
}

DatachunkHelper::ImportFileType ReopenDialog::type() const
{
    return DatachunkHelper::ImportFileType(types->currentData().toInt());
}

void ReopenDialog::updateFields()
{
    format->setEnabled(type() == DatachunkHelper::GenericFormat);
}

void ReopenDialog::choose()
{
    const bool isGeneric = type() == DatachunkHelper::GenericFormat;
    emit chosen({before.path, type(),
                 strict->isChecked() ? DatachunkHelper::Strict : DatachunkHelper::Tolerant,
                 isGeneric ? format->text() : QString()});
    accept();
}
