#pragma once

#include "traceexpression.h"

#include <QWidget>

#include <optional>

class QAction;
class TraceTableModel;

/// Where the user writes a filter, and finds with it.
class FilterBar : public QWidget
{
    Q_OBJECT
public:
    /// \a model is what the filter is for: its progress is shown, and its find used.
    explicit FilterBar(TraceTableModel *model, QWidget *parent = nullptr);

    /// Find next and previous, the field itself, saved filters; they belong to the bar.
    QList<QAction *> actions() const;

public slots:
    /// As if the user had written and entered it.
    void setText(const QString &text);

signals:
    /// Nothing where all messages are wanted.
    void filterChanged(const std::optional<TraceExpression> &expression);
};
