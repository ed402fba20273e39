#pragma once

#include <QWidget>

class ShownTrace;

/// One row for each identifier of a trace: count, period, last payload with what has changed, age.
class IdentifierView : public QWidget
{
    Q_OBJECT
public:
    explicit IdentifierView(ShownTrace *trace, QWidget *parent = nullptr);

signals:
    /// The user wants to see a message, or only such messages.
    void positionChosen(quint64 position);
    void filterWanted(const QString &expression);
};
