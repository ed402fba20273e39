#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

/// Has the monitor's settings lie in a folder that goes with this, so that a test begins without
/// any.
class TemporarySettings
{
public:
    TemporarySettings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("datachunk"));
        QCoreApplication::setApplicationName(QStringLiteral("datachunk-monitor"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    }

private:
    QTemporaryDir folder;
};
