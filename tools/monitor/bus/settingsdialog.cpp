#include "settingsdialog.h"

#include "pathedit.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

SettingsDialog::SettingsDialog(const RecordingSettings &settings, QWidget *parent)
    : QDialog(parent), budget(new QSpinBox), memory(new QSpinBox),
      folder(new PathEdit(PathEdit::Folder, tr("Folder for recordings")))
{
    setWindowTitle(tr("Recording settings"));
    setObjectName(QStringLiteral("recordingSettings"));
    setAttribute(Qt::WA_DeleteOnClose);
    constexpr int step = 1000;
    budget->setObjectName(QStringLiteral("budget"));
    budget->setRange(RecordingSettings::leastBudget, RecordingSettings::mostBudget);
    budget->setSingleStep(step);
    budget->setGroupSeparatorShown(true);
    budget->setSuffix(tr(" MiB"));
    budget->setValue(settings.budget);
    budget->setToolTip(tr("When the recording is larger, its oldest messages are deleted."));
    memory->setRange(RecordingSettings::leastMemory, RecordingSettings::mostMemory);
    memory->setSingleStep(10 * step);
    memory->setGroupSeparatorShown(true);
    memory->setSuffix(tr(" messages"));
    memory->setValue(settings.memory);
    memory->setToolTip(tr("So many messages are in memory before they go to the disk. It holds "
                          "from the next recording on."));
    folder->setObjectName(QStringLiteral("folder"));
    folder->setPath(settings.folder);
    auto *form = new QFormLayout;
    form->addRow(tr("&Disk budget:"), budget);
    form->addRow(tr("In &memory:"), memory);
    form->addRow(tr("&Saved into:"), folder);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
}

RecordingSettings SettingsDialog::settings() const
{
    RecordingSettings result;
    result.budget = budget->value();
    result.memory = memory->value();
    result.folder = folder->path();
    return result;
}
