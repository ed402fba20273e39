#pragma once

#include "targetformat.h"

#include <QComboBox>

#include <optional>

/// The formats that a trace can be written in.
class FormatBox : public QComboBox
{
    Q_OBJECT
public:
    /// Begins with the format that was chosen last.
    explicit FormatBox(QWidget *parent = nullptr);

    TargetFormat format() const;
    void setFormat(const TargetFormat &format);

    /// What the format cannot keep, a sentence; empty where it keeps all.
    QString limits() const;
    /// Whether it knows two ways to count times.
    bool hasDeltaTimes() const;
    bool isOwnText() const;

    /// Remembers it for the next time.
    void remember() const;
};
