#pragma once

#include "recordingsettings.h"

#include <QDialog>

class PathEdit;
class QSpinBox;

/// Lets the user say how recordings are kept.
class SettingsDialog : public QDialog
{
    Q_OBJECT
public:
    SettingsDialog(const RecordingSettings &settings, QWidget *parent);

    RecordingSettings settings() const;

private:
    QSpinBox *const budget;
    QSpinBox *const memory;
    PathEdit *const folder;
};
