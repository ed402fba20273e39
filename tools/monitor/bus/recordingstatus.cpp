#include "recordingstatus.h"

#include "recording.h"
#include "recordingkeeper.h"

#include <QDesktopServices>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QStyle>
#include <QToolButton>
#include <QUrl>

namespace {

constexpr int millisecondsBetweenUpdates = 500;
constexpr int folderCharacters = 28;
constexpr int budgetCharacters = 26;
constexpr qint64 bytesPerMebibyte = 1024LL * 1024;

QString number(quint64 value)
{
    return QLocale().toString(value);
}

} // namespace

RecordingStatus::RecordingStatus(RecordingKeeper *keeper, QWidget *parent)
    : QWidget(parent), keeper(keeper), folder(new QToolButton), budget(new QProgressBar),
      counts(new QLabel), saving(new QProgressBar), cancel(new QToolButton)
{
    const int character = fontMetrics().averageCharWidth();
    folder->setObjectName(QStringLiteral("recordingFolder"));
    folder->setAutoRaise(true);
    folder->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    folder->setIcon(style()->standardIcon(QStyle::SP_DirIcon));
    budget->setObjectName(QStringLiteral("recordingBudget"));
    budget->setFixedWidth(character * budgetCharacters);
    counts->setObjectName(QStringLiteral("recordingCounts"));
    counts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    saving->setObjectName(QStringLiteral("savingProgress"));
    saving->setFixedWidth(character * budgetCharacters);
    saving->setFormat(tr("saving, %p %"));
    cancel->setObjectName(QStringLiteral("cancelSaving"));
    cancel->setAutoRaise(true);
    cancel->setIcon(style()->standardIcon(QStyle::SP_DialogCancelButton));
    cancel->setAccessibleName(tr("Cancel saving"));
    cancel->setToolTip(cancel->accessibleName());
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    for (QWidget *part : {static_cast<QWidget *>(saving), static_cast<QWidget *>(cancel),
                          static_cast<QWidget *>(folder), static_cast<QWidget *>(budget),
                          static_cast<QWidget *>(counts)})
        layout->addWidget(part);
    connect(folder, &QToolButton::clicked, this, &RecordingStatus::openFolder);
    connect(cancel, &QToolButton::clicked, keeper->saver(), &RecordingSaver::cancel);
    connect(keeper, &RecordingKeeper::recordingChanged, this, &RecordingStatus::updateCounts);
    connect(keeper->disk(), &DiskWatch::looked, this, &RecordingStatus::updateDisk);
    connect(keeper->saver(), &RecordingSaver::busyChanged, this, &RecordingStatus::updateSaving);
    connect(keeper->saver(), &RecordingSaver::progress, saving, &QProgressBar::setValue);
    connect(&timer, &QTimer::timeout, this, &RecordingStatus::updateCounts);
    updateCounts();
    updateDisk();
    updateSaving();
}

void RecordingStatus::setGrowing(bool growing)
{
    isGrowing = growing;
    updateTimer();
}

void RecordingStatus::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    updateTimer();
}

void RecordingStatus::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    updateTimer();
}

void RecordingStatus::updateTimer()
{
    if (isGrowing && isVisible())
        timer.start(millisecondsBetweenUpdates);
    else
        timer.stop();
    updateCounts();
}

void RecordingStatus::updateCounts()
{
    const RecordingCounts now = keeper->recording()->counts();
    const QString text = tr("taken %1   stored %2   dropped %3")
                             .arg(number(now.taken), number(now.stored), number(now.dropped));
    QFont font = counts->font();
    font.setBold(now.dropped > 0);
    counts->setFont(font);
    counts->setText(text);
    QString tip = tr("Messages received, kept by the recording, and lost because the disk was too "
                     "slow or did not take them.");
    if (now.chunksRemoved > 0)
        tip += QLatin1Char('\n')
            + tr("The budget has taken the %n oldest chunk files of those stored.", nullptr,
                 int(now.chunksRemoved));
    counts->setToolTip(tip);
}

void RecordingStatus::updateDisk()
{
    const DiskState &disk = keeper->disk()->state();
    const QString path = QDir::toNativeSeparators(keeper->recording()->store().chunkFolderPath());
    const QString text = path.isEmpty() ? tr("no folder") : path;
    folder->setText(fontMetrics().elidedText(text, Qt::ElideMiddle,
                                             fontMetrics().averageCharWidth() * folderCharacters));
    folder->setToolTip(tr("The recording lies in %1; click to open it.").arg(text));
    const int most = keeper->recording()->budget();
    const auto used = int(qMin<qint64>(disk.used / bytesPerMebibyte, most));
    budget->setRange(0, most);
    budget->setValue(used);
    const QLocale locale;
    budget->setFormat(tr("%1 of %2")
                          .arg(locale.formattedDataSize(disk.used, 0),
                               locale.formattedDataSize(most * bytesPerMebibyte, 0)));
    QString tip = tr("Room that the recording takes, of its budget.");
    if (disk.size > 0)
        tip += QLatin1Char(' ')
            + tr("%1 are left on the disk.").arg(locale.formattedDataSize(disk.free));
    budget->setToolTip(tip);
}

void RecordingStatus::updateSaving()
{
    const bool isBusy = keeper->saver()->isBusy();
    saving->setVisible(isBusy);
    cancel->setVisible(isBusy);
}

void RecordingStatus::openFolder() const
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(keeper->recording()->store().chunkFolderPath()));
}
