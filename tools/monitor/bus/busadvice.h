#pragma once

#include <QCoreApplication>
#include <QStringList>

struct DeviceOptions;

/// Why an interface could not be connected, and what to do, in plain words.
struct BusAdvice
{
    Q_DECLARE_TR_FUNCTIONS(BusAdvice)

public:
    QString text;
    QString advice;

    /// \a reason is what the plug-in says. To be asked on the thread of the devices, since other
    /// interfaces are looked for.
    static BusAdvice of(const DeviceOptions &options, const QString &reason);

private:
    static BusAdvice ofSocket(const DeviceOptions &options, const QString &reason);
    static BusAdvice ofPlugin(const DeviceOptions &options, const QString &reason);
    static QString others(const DeviceOptions &options);
};
