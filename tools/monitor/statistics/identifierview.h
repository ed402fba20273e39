#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class IdentifierTable;
class QLabel;
class QLineEdit;
class QTableView;
class ShownTrace;
class TraceDigest;

/// One row for each identifier of a trace: count, period, last payload with what has changed, age.
class IdentifierView : public QWidget
{
    Q_OBJECT
public:
    explicit IdentifierView(ShownTrace *trace, QWidget *parent = nullptr);
    ~IdentifierView() override;

signals:
    /// The user wants to see a message, or only such messages.
    void positionChosen(quint64 position);
    void filterWanted(const QString &expression);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildTable();
    void buildMenu();
    void showProgress();
    void chooseCurrent();
    void filterCurrent(bool isWanted);
    void tick();

    const QPointer<TraceDigest> digest;
    IdentifierTable *const model;
    QTableView *const table;
    QLineEdit *const search;
    QLabel *const progress;
    QTimer ages; // runs while time goes on in the trace
};
