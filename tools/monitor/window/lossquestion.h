#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class QMessageBox;
class QWidget;

/// Asks before something is closed with which something else would be lost, one question at a time.
class LossQuestion : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window.
    explicit LossQuestion(QWidget *window);

    /// Returns at once; \a go is called when the user agrees to lose what \a losses say, a sentence
    /// each. Has no effect as long as there is a question.
    void ask(const QString &text, const QStringList &losses, const std::function<void()> &go);

private:
    QWidget *const window;
    QPointer<QMessageBox> box;
};
