#pragma once

#include "buschoice.h"

#include <QDialog>

class DevicePage;
class GeneratorPage;
class InterfaceFinder;
class QLabel;
class QPushButton;
class QSpinBox;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;
class ReplayPage;

/// Lets the user choose where messages come from. What was chosen last is chosen already.
class ConnectDialog : public QDialog
{
    Q_OBJECT
public:
    /// \a freeNumber is proposed where the interface has no number of its own.
    ConnectDialog(int freeNumber, QWidget *parent);

signals:
    void chosen(const BusChoice &choice);

private:
    void buildSources();
    void buildLayout();
    void look();
    QTreeWidgetItem *addDevice(const QString &plugin, const QString &interface,
                               const QString &description);
    QTreeWidgetItem *findDevice(const QString &plugin, const QString &interface) const;
    void addFound(const QString &plugin, const QStringList &names, const QStringList &descriptions);
    BusChoice choice() const;
    void showOptions();
    void proposeNumber();
    void check();
    void take();

    const int freeNumber;
    const BusChoice last;
    InterfaceFinder *const finder;
    QTreeWidget *const sources;
    QLabel *const looking;
    QPushButton *const refresh;
    QStackedWidget *const pages;
    DevicePage *const devicePage;
    ReplayPage *const replayPage;
    GeneratorPage *const generatorPage;
    QSpinBox *const number;
    QPushButton *connectButton = nullptr;
    QTreeWidgetItem *replay = nullptr;
    QTreeWidgetItem *proposed = nullptr; // the user has chosen another one once it is not current
    bool isNumberChosen = false;         // by the user
};
