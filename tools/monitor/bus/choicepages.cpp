#include "choicepages.h"

#include "pathedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>

namespace {

constexpr int mostRate = 200000;
constexpr int mostLines = 8;

QString rateText(quint32 bitsPerSecond)
{
    constexpr double perKilobit = 1000;
    return DevicePage::tr("%1 kbit/s").arg(QLocale().toString(bitsPerSecond / perKilobit, 'g', 6));
}

void addRates(QComboBox *box, std::initializer_list<quint32> rates)
{
    box->addItem(DevicePage::tr("as it is set"), 0);
    for (const quint32 rate : rates)
        box->addItem(rateText(rate), rate);
}

// A rate that is not offered was set elsewhere, and is kept.
void setRate(QComboBox *box, quint32 rate)
{
    if (box->findData(rate) < 0)
        box->addItem(rateText(rate), rate);
    box->setCurrentIndex(box->findData(rate));
}

QFormLayout *makeForm(QWidget *page)
{
    auto *form = new QFormLayout(page);
    form->setContentsMargins({});
    return form;
}

} // namespace

DevicePage::DevicePage(QWidget *parent)
    : QWidget(parent), interface(new QLineEdit), bitRate(new QComboBox),
      fd(new QCheckBox(tr("CAN &FD"))), dataBitRate(new QComboBox)
{
    interface->setObjectName(QStringLiteral("interface"));
    bitRate->setObjectName(QStringLiteral("bitRate"));
    fd->setObjectName(QStringLiteral("fd"));
    addRates(bitRate,
             {10000, 20000, 33333, 50000, 83333, 100000, 125000, 250000, 500000, 800000, 1000000});
    addRates(dataBitRate, {1000000, 2000000, 4000000, 5000000, 8000000});
    QFormLayout *form = makeForm(this);
    form->addRow(tr("&Interface:"), interface);
    form->addRow(tr("Bit &rate:"), bitRate);
    form->addRow(QString(), fd);
    form->addRow(tr("&Data bit rate:"), dataBitRate);
    dataBitRate->setEnabled(false);
    connect(fd, &QCheckBox::toggled, dataBitRate, &QWidget::setEnabled);
    connect(interface, &QLineEdit::textChanged, this, &DevicePage::changed);
}

void DevicePage::setDevice(const QString &name, const QString &device)
{
    plugin = name;
    interface->setPlaceholderText(tr("the name of the interface"));
    interface->setText(device);
    // The system has set that of a network interface, and lets only its administrator change it.
    const bool isNetwork = plugin == QLatin1String("socketcan");
    bitRate->setToolTip(
        isNetwork ? tr("Set it with \"sudo ip link set %1 up type can bitrate …\".").arg(device)
                  : QString());
}

void DevicePage::setOptions(const DeviceOptions &options)
{
    setDevice(options.plugin, options.interface);
    setRate(bitRate, options.bitRate);
    setRate(dataBitRate, options.dataBitRate);
    fd->setChecked(options.fd);
}

DeviceOptions DevicePage::options() const
{
    DeviceOptions result;
    result.plugin = plugin;
    result.interface = interface->text().trimmed();
    result.bitRate = bitRate->currentData().toUInt();
    result.fd = fd->isChecked();
    result.dataBitRate = result.fd ? dataBitRate->currentData().toUInt() : 0;
    return result;
}

ReplayPage::ReplayPage(QWidget *parent)
    : QWidget(parent), path(new PathEdit(PathEdit::ExistingFile, tr("Trace to replay"))),
      speed(new QComboBox), loops(new QCheckBox(tr("Begin anew at the &end"))),
      keepsLines(new QCheckBox(tr("&Keep the bus lines of the trace")))
{
    path->setObjectName(QStringLiteral("replayPath"));
    speed->setObjectName(QStringLiteral("speed"));
    for (const double times : {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0})
        speed->addItem(tr("%1 times").arg(QLocale().toString(times)), times);
    speed->addItem(tr("as fast as possible"), 0.0);
    QFormLayout *form = makeForm(this);
    form->addRow(tr("&Trace:"), path);
    form->addRow(tr("&Speed:"), speed);
    form->addRow(QString(), loops);
    form->addRow(QString(), keepsLines);
    connect(path, &PathEdit::changed, this, &ReplayPage::changed);
    connect(keepsLines, &QCheckBox::toggled, this, &ReplayPage::changed);
}

void ReplayPage::setOptions(const ReplayOptions &options)
{
    path->setPath(options.path);
    const int index = speed->findData(options.speed);
    speed->setCurrentIndex(index >= 0 ? index : speed->findData(1.0));
    loops->setChecked(options.loops);
    keepsLines->setChecked(options.keepsLines);
}

ReplayOptions ReplayPage::options() const
{
    ReplayOptions result;
    result.path = path->path();
    result.speed = speed->currentData().toDouble();
    result.loops = loops->isChecked();
    result.keepsLines = keepsLines->isChecked();
    return result;
}

GeneratorPage::GeneratorPage(QWidget *parent)
    : QWidget(parent), rate(new QSpinBox), lines(new QSpinBox),
      fdFrames(new QCheckBox(tr("CAN &FD frames among them"))),
      errorFrames(new QCheckBox(tr("&Error frames among them")))
{
    rate->setObjectName(QStringLiteral("rate"));
    rate->setRange(1, mostRate);
    rate->setSingleStep(1000);
    rate->setGroupSeparatorShown(true);
    rate->setSuffix(tr(" messages/s"));
    lines->setObjectName(QStringLiteral("generatorLines"));
    lines->setRange(1, mostLines);
    QFormLayout *form = makeForm(this);
    form->addRow(tr("&Rate:"), rate);
    form->addRow(tr("Bus &lines:"), lines);
    form->addRow(QString(), fdFrames);
    form->addRow(QString(), errorFrames);
}

void GeneratorPage::setOptions(const GeneratorOptions &options)
{
    rate->setValue(options.rate);
    lines->setValue(options.lines);
    fdFrames->setChecked(options.fdFrames);
    errorFrames->setChecked(options.errorFrames);
}

GeneratorOptions GeneratorPage::options() const
{
    GeneratorOptions result;
    result.rate = rate->value();
    result.lines = lines->value();
    result.fdFrames = fdFrames->isChecked();
    result.errorFrames = errorFrames->isChecked();
    return result;
}
