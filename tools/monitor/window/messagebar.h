#pragma once

#include "notices.h"

#include <QWidget>

class QVBoxLayout;

/// What the user has to know, above the traces, one line for each; nothing of it takes the focus or
/// stops anything.
class MessageBar : public QWidget
{
    Q_OBJECT
public:
    explicit MessageBar(QWidget *parent = nullptr);

public slots:
    /// A text that stands there already is not added again. When there are many, the oldest of
    /// those that matter least goes.
    void add(const Notice &notice);

private:
    QVBoxLayout *const layout;
};
