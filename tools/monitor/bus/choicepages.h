#pragma once

#include "devicereader.h"
#include "replayline.h"
#include "trafficmix.h"

#include <QWidget>

class PathEdit;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

/// The options of an interface.
class DevicePage : public QWidget
{
    Q_OBJECT
public:
    explicit DevicePage(QWidget *parent = nullptr);

    /// The plug-in and the interface that are chosen; the name may be changed.
    void setDevice(const QString &plugin, const QString &interface);
    void setOptions(const DeviceOptions &options);
    DeviceOptions options() const;

signals:
    void changed();

private:
    QString plugin;
    QLineEdit *const interface;
    QComboBox *const bitRate;
    QCheckBox *const fd;
    QComboBox *const dataBitRate;
};

/// The options of a replay.
class ReplayPage : public QWidget
{
    Q_OBJECT
public:
    explicit ReplayPage(QWidget *parent = nullptr);

    void setOptions(const ReplayOptions &options);
    ReplayOptions options() const;

signals:
    void changed();

private:
    PathEdit *const path;
    QComboBox *const speed;
    QCheckBox *const loops;
    QCheckBox *const keepsLines;
};

/// The options of a generator.
class GeneratorPage : public QWidget
{
    Q_OBJECT
public:
    explicit GeneratorPage(QWidget *parent = nullptr);

    void setOptions(const GeneratorOptions &options);
    GeneratorOptions options() const;

private:
    QSpinBox *const rate;
    QSpinBox *const lines;
    QCheckBox *const fdFrames;
    QCheckBox *const errorFrames;
};
