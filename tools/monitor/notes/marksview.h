#pragma once

#include <QTableView>

#include <optional>

/// The list of notes and bookmarks. Their text takes what room there is.
class MarksView : public QTableView
{
    Q_OBJECT
public:
    explicit MarksView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override;

    /// Makes the columns as wide as what is in sight.
    void fitColumns();
    /// The position of the message of the current row.
    std::optional<quint64> currentMessage() const;
    /// Whether the user is writing in it.
    bool isEdited() const { return state() == EditingState; }

signals:
    /// The user wants to go to a message.
    void positionChosen(quint64 position);
    /// An editor was closed, with a text or without.
    void editingEnded();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
};
