#pragma once

#include "traceexpression.h"

#include <QLineEdit>
#include <QPointer>
#include <QStringList>

class QCompleter;
class QLabel;

/// The field in which an expression is written: completes its words, brings back what was entered
/// before, and shows an error where it is.
class FilterField : public QLineEdit
{
    Q_OBJECT
public:
    explicit FilterField(QWidget *parent = nullptr);
    ~FilterField() override;

    void showError(const TraceExpression::Error &error);
    void hideError();

    /// What was entered before, the newest first; the keys Up and Down go through it.
    void setHistory(const QStringList &texts);

signals:
    void escaped();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void hideBubble();
    void complete(bool isWanted);
    void insertWord(const QModelIndex &word);
    void recall(int step);
    int xOf(int character);

    QCompleter *const completer;
    QPointer<QLabel> bubble; // a child of the window
    QStringList history;
    QString draft; // what stood there before history was gone through
    int recalled = -1;
    int errorColumn = 0; // from 1; 0 for none
};
