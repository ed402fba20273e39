#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QLineEdit;

/// A small line over the table that asks where to go. Enter goes there, Escape goes back.
class JumpLine : public QFrame
{
    Q_OBJECT
public:
    /// Stays at the top of \a table.
    explicit JumpLine(QWidget *table);

    /// Goes where the text says; returns why it cannot, or nothing.
    using Go = std::function<QString(const QString &text)>;
    void ask(const QString &title, const QString &hint, const Go &go);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void enter();
    void close();
    void tell(const QString &text, bool isError);
    void place();

    QWidget *const table;
    QLabel *const title;
    QLineEdit *const field;
    QLabel *const below;
    QString hint;
    Go go;
};
