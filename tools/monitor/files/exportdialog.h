#pragma once

#include "exporting.h"
#include "jumptarget.h"

#include <QDialog>

class FormatBox;
class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class ShownTrace;
class TraceView;

/// Asks what of a trace is to be written, and where.
class ExportDialog : public QDialog
{
    Q_OBJECT
public:
    ExportDialog(const ShownTrace &trace, const TraceView &view, QWidget *parent);

signals:
    void chosen(const ExportOrder &order, const TraceSelection &selection);

private:
    enum Part { All, Filtered, Selected, Positions, Times };

    QWidget *parts(const ShownTrace &trace, const TraceView &view);
    QRadioButton *addPart(Part part, const QString &text, bool isThere);
    QLineEdit *addRange(Part part, const QString &text, const QString &first, const QString &last);
    QWidget *target();
    void browse();
    void followName();
    void followFormat();
    void update();
    void choose();
    QString targetPath() const;
    std::optional<TraceSelection> selection() const;
    std::optional<qint64> timeIn(const QLineEdit *field) const;
    bool isSource(const QString &target) const;

    const QStringList sources; // where the trace lies
    const std::optional<TraceExpression> expression;
    const QVector<quint64> selected;
    const JumpTarget::Times times; // those that the user writes
    QButtonGroup *const group;
    QLineEdit *firstOf[Times + 1] = {};
    QLineEdit *lastOf[Times + 1] = {};
    QLineEdit *const name;
    FormatBox *const format;
    QCheckBox *const deltas;
    QCheckBox *const notes;
    QLabel *const remark;
    class QPushButton *button = nullptr;
    QGridLayout *grid = nullptr;
};
