#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <vector>

#include "filelist/type_to_find.h"

class ColumnWidths;
class GroupedRowsModel;
class QLabel;

/// A table of files: whole rows, no grid, painted by `RowPainter`, the columns as its model's list
/// has them, as wide as `ColumnWidths` makes them, and a text in its middle, its description too,
/// for as long as it has no rows. A click on a heading asks for a sort, the third one for the order
/// of the records.
class ListView : public QTableView {
  Q_OBJECT

 public:
  /// `model` outlives the view.
  explicit ListView(GroupedRowsModel& model, QWidget* parent = nullptr);

  /// Hides or shows a column and shares the width anew.
  void ShowColumn(int column, bool show);
  /// What stands in the middle while there are no rows; without a title nothing does.
  void SetEmptyText(const QString& title, const QString& note);

  /// The selected rows from the top; nothing is computed a row but for what is selected.
  std::vector<int> SelectedRows() const;

  /// The width in which no shown column is out of sight.
  int LeastWidth() const;
  /// The height in which all rows are seen.
  int HeightOfRows() const;

  /// Sorts the model; the selection goes with its files unless it is very large.
  void SortRows(int column, Qt::SortOrder order);

  /// Where on the screen the menu belongs that was asked for last.
  QPoint MenuPlace() const { return menu_place_; }

 signals:
  void spacePressed();
  /// A double click on a row, but for one on a check box; or Enter, which means the current row.
  void rowDblClick(int Row, int Item);
  /// A menu is asked for; -1 where no row is.
  void rowRClick(int Row, int Item);
  /// The user wants a sort by a column, or by none: -1.
  void sortAsked(int column, Qt::SortOrder order);

 protected:
  void changeEvent(QEvent* event) override;
  /// Goes to the next row whose name begins with what is typed.
  void keyboardSearch(const QString& letters) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpHeader();
  void MakeEmptyText();
  void ConnectRows();
  void SetHeights();
  void ShowEmptyText();
  void AskForSort(int column, Qt::SortOrder order);
  void AskForMenu(const QPoint& place);

  GroupedRowsModel& model_;
  ColumnWidths* columns_ = nullptr;
  TypeToFind find_;
  QElapsedTimer running_;  ///< since the view was made
  QPoint menu_place_;
  QWidget* empty_ = nullptr;
  QLabel* empty_picture_ = nullptr;
  QLabel* empty_title_ = nullptr;
  QLabel* empty_note_ = nullptr;
  QString described_;  ///< how the empty list is described to screen readers
};
