#pragma once

#include <QVector>

#include <optional>

class MessageModel;
class QItemSelection;
class QItemSelectionModel;

/// What is selected in a table whose window of rows moves: by positions, which stay with their
/// messages, where indexes do not.
class RowSelection
{
public:
    explicit RowSelection(const MessageModel &model) : model(model) { }

    /// Forgets everything.
    void clear();

    std::optional<quint64> current;
    /// Where a selection that is made with Shift begins.
    std::optional<quint64> anchor;

    /// Takes over what is selected.
    void take(const QItemSelection &selection);
    /// Selects it again, as far as the table has it.
    void restore(QItemSelectionModel &selection, int column) const;

private:
    struct Range
    {
        quint64 first;
        quint64 last;
    };

    const MessageModel &model;
    QVector<Range> ranges;
};
