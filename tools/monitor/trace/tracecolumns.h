#pragma once

#include <QObject>

class QAction;
class QHeaderView;
class QMenu;
class QTableView;

/// Which columns of the messages are shown, in which order and how wide; kept in the settings for
/// all tables.
class TraceColumns : public QObject
{
    Q_OBJECT
public:
    /// \a table has its model already.
    explicit TraceColumns(QTableView *table);

    /// A checkable action for each column, and one that goes back to how it was at first.
    QMenu *menu() const { return ownMenu; }
    /// Takes over what was chosen in another table since.
    void load();
    /// Gives a column as much room as its messages take, unless they are long.
    void fit(int column);

private:
    int widthFor(const QString &text) const;
    void setDefaults();
    void save();
    void updateMenu();
    void buildMenu();

    QTableView *const table;
    QHeaderView *const header;
    QMenu *const ownMenu;
    bool isLoading = false;
};
