#pragma once

class QAction;
class QTableView;

/// What the tables of statistics have in common.
namespace TableTools {

/// Dense rows of whole lines in a fixed-pitch font, columns that the user may choose from the menu
/// of the header.
void prepare(QTableView *table);
/// As wide as \a sample in the font of the table.
void setColumnWidth(QTableView *table, int column, const char *sample);

/// Puts the selected rows into the clipboard, or all where none are: titles and texts of the shown
/// columns, with tabs between them.
void copy(const QTableView *table);
/// The action that does so; it belongs to the table.
QAction *copyAction(QTableView *table);

/// Columns, their order, widths and sorting, in the user's settings.
void keepColumns(const QTableView *table, const char *key);
/// False where nothing was kept.
bool restoreColumns(QTableView *table, const char *key);

} // namespace TableTools
