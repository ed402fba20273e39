#include "connectdialog.h"

#include "busframes.h"
#include "choicepages.h"
#include "interfacefinder.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Role { KindRole = Qt::UserRole, PluginRole, InterfaceRole };

BusChoice::Kind kindOf(const QTreeWidgetItem *item)
{
    return BusChoice::Kind(item->data(0, KindRole).toInt());
}

} // namespace

ConnectDialog::ConnectDialog(int freeNumber, QWidget *parent)
    : QDialog(parent), freeNumber(freeNumber), last(BusChoice::saved()),
      finder(new InterfaceFinder(this)), sources(new QTreeWidget), looking(new QLabel),
      refresh(new QPushButton(tr("Look a&gain"))), pages(new QStackedWidget),
      devicePage(new DevicePage), replayPage(new ReplayPage), generatorPage(new GeneratorPage),
      number(new QSpinBox)
{
    setWindowTitle(tr("Connect"));
    setObjectName(QStringLiteral("connectDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    buildLayout();
    devicePage->setOptions(last.device);
    replayPage->setOptions(last.replay);
    generatorPage->setOptions(last.generator);
    connect(sources, &QTreeWidget::currentItemChanged, this, &ConnectDialog::showOptions);
    connect(sources, &QTreeWidget::itemActivated, this, &ConnectDialog::take);
    connect(devicePage, &DevicePage::changed, this, &ConnectDialog::proposeNumber);
    connect(replayPage, &ReplayPage::changed, this, &ConnectDialog::check);
    connect(number, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this] { isNumberChosen = true; });
    connect(finder, &InterfaceFinder::found, this, &ConnectDialog::addFound);
    connect(finder, &InterfaceFinder::done, this, [this] {
        looking->clear();
        refresh->setEnabled(true);
    });
    connect(refresh, &QPushButton::clicked, this, &ConnectDialog::look);
    buildSources();
    look();
}

void ConnectDialog::buildLayout()
{
    constexpr int rows = 9;
    sources->setObjectName(QStringLiteral("sources"));
    sources->setHeaderLabels({tr("From"), tr("What it is")});
    sources->setRootIsDecorated(false);
    sources->setUniformRowHeights(true);
    sources->setAllColumnsShowFocus(true);
    sources->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    sources->setMinimumHeight(fontMetrics().height() * rows * 3 / 2);
    sources->setMinimumWidth(fontMetrics().averageCharWidth() * 62);
    number->setObjectName(QStringLiteral("number"));
    number->setRange(0, 255);
    pages->addWidget(devicePage);
    pages->addWidget(replayPage);
    pages->addWidget(generatorPage);
    auto *numberForm = new QFormLayout;
    numberForm->addRow(tr("Shown as bus li&ne:"), number);
    auto *options = new QGroupBox(tr("Options"));
    auto *optionsLayout = new QVBoxLayout(options);
    optionsLayout->addWidget(pages);
    optionsLayout->addLayout(numberForm);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connectButton = buttons->addButton(tr("&Connect"), QDialogButtonBox::AcceptRole);
    connectButton->setObjectName(QStringLiteral("accept"));
    refresh->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &ConnectDialog::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(refresh);
    bottom->addWidget(looking, 1);
    bottom->addWidget(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(sources, 1);
    layout->addWidget(options);
    layout->addLayout(bottom);
    // Before it is in the dialog, the dialog would not know.
    connectButton->setDefault(true);
}

// What was connected last stands there at once, whatever the plug-ins take to answer.
void ConnectDialog::buildSources()
{
    const auto add = [this](BusChoice::Kind kind, const QString &name, const QString &what,
                            QStyle::StandardPixmap icon) {
        auto *item = new QTreeWidgetItem({name, what});
        item->setData(0, KindRole, kind);
        item->setIcon(0, style()->standardIcon(icon));
        sources->addTopLevelItem(item);
        return item;
    };
    replay = add(BusChoice::Replay, tr("Recorded trace"), tr("comes again as if it were received"),
                 QStyle::SP_FileIcon);
    auto *generator = add(BusChoice::Generator, tr("Generator"), tr("traffic without hardware"),
                          QStyle::SP_MediaPlay);
    QTreeWidgetItem *device = nullptr;
    if (!last.device.plugin.isEmpty())
        device = addDevice(last.device.plugin, last.device.interface, tr("connected last"));
    proposed = generator;
    if (last.kind == BusChoice::Replay)
        proposed = replay;
    else if (last.kind == BusChoice::Device && device)
        proposed = device;
    sources->setCurrentItem(proposed);
}

void ConnectDialog::look()
{
    refresh->setEnabled(false);
    looking->setText(tr("looking for interfaces…"));
    finder->look();
}

QTreeWidgetItem *ConnectDialog::findDevice(const QString &plugin, const QString &interface) const
{
    for (int i = 0; i < sources->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = sources->topLevelItem(i);
        if (kindOf(item) == BusChoice::Device && item->data(0, PluginRole) == plugin
            && item->data(0, InterfaceRole) == interface)
            return item;
    }
    return nullptr;
}

// In front of the replay and the generator, and behind them where a name has to be entered.
QTreeWidgetItem *ConnectDialog::addDevice(const QString &plugin, const QString &interface,
                                          const QString &description)
{
    QTreeWidgetItem *item = findDevice(plugin, interface);
    if (!item) {
        item = new QTreeWidgetItem;
        item->setData(0, KindRole, BusChoice::Device);
        item->setData(0, PluginRole, plugin);
        item->setData(0, InterfaceRole, interface);
        item->setText(0, interface.isEmpty() ? tr("Other…") : interface);
        item->setIcon(0, style()->standardIcon(QStyle::SP_ComputerIcon));
        sources->insertTopLevelItem(interface.isEmpty() ? sources->topLevelItemCount()
                                                        : sources->indexOfTopLevelItem(replay),
                                    item);
    }
    item->setText(1, description.isEmpty() ? plugin : tr("%1: %2").arg(plugin, description));
    return item;
}

void ConnectDialog::addFound(const QString &plugin, const QStringList &names,
                             const QStringList &descriptions)
{
    for (int i = 0; i < names.size(); ++i)
        addDevice(plugin, names.at(i), descriptions.at(i));
    if (names.isEmpty() && !findDevice(plugin, last.device.interface))
        addDevice(plugin, {}, tr("none found; type its name"));
    // Who has connected nothing so far is offered the first interface that there is. Some plug-ins
    // tell of interfaces whether or not there are any.
    const bool isFirstTime = last.device.plugin.isEmpty() && last.kind == BusChoice::Device;
    const bool isReal = plugin != QLatin1String("virtualcan") && plugin != QLatin1String("tinycan");
    if (!isFirstTime || !isReal || names.isEmpty() || sources->currentItem() != proposed
        || kindOf(proposed) == BusChoice::Device)
        return;
    proposed = findDevice(plugin, names.first());
    sources->setCurrentItem(proposed);
}

BusChoice ConnectDialog::choice() const
{
    BusChoice result;
    const QTreeWidgetItem *item = sources->currentItem();
    result.kind = item ? kindOf(item) : BusChoice::Generator;
    result.device = devicePage->options();
    result.replay = replayPage->options();
    result.generator = generatorPage->options();
    result.number = number->value();
    return result;
}

void ConnectDialog::showOptions()
{
    const QTreeWidgetItem *item = sources->currentItem();
    if (!item)
        return;
    pages->setCurrentIndex(kindOf(item));
    if (kindOf(item) == BusChoice::Device)
        devicePage->setDevice(item->data(0, PluginRole).toString(),
                              item->data(0, InterfaceRole).toString());
    proposeNumber();
}

void ConnectDialog::proposeNumber()
{
    const BusChoice now = choice();
    const bool isDevice = now.kind == BusChoice::Device;
    const QSignalBlocker blocker(number);
    const QString &interface = now.device.interface;
    const bool hasNumber = isDevice && !interface.isEmpty() && interface.back().isDigit();
    if (!isNumberChosen)
        number->setValue(hasNumber ? BusFrames::lineOf(interface) : freeNumber);
    check();
}

void ConnectDialog::check()
{
    const BusChoice now = choice();
    const bool isReplay = now.kind == BusChoice::Replay;
    number->setEnabled(!isReplay || !now.replay.keepsLines);
    connectButton->setEnabled((now.kind != BusChoice::Device || !now.device.interface.isEmpty())
                              && (!isReplay || !now.replay.path.isEmpty()));
}

void ConnectDialog::take()
{
    if (!connectButton->isEnabled())
        return;
    const BusChoice now = choice();
    now.save();
    emit chosen(now);
    accept();
}
