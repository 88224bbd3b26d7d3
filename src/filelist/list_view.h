#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>
#include <string>
#include <vector>

#include "filelist/type_to_find.h"

class ColumnWidths;
class EmptyText;
class GroupedRowsModel;

/// A table of files: whole rows, no grid, painted by `RowPainter`, the columns as its model's list
/// has them, as wide as `ColumnWidths` makes them, and an `EmptyText` for as long as it has no
/// rows. A click on a heading sorts by it, the third one gives the order of the records back.
class ListView : public QTableView {
  Q_OBJECT

 public:
  /// `model` outlives the view.
  explicit ListView(GroupedRowsModel& model, QWidget* parent = nullptr);

  /// Hides or shows a column and shares the width anew.
  void ShowColumn(int column, bool show);
  /// What is shown while there are no rows; nothing until it has texts.
  EmptyText& Empty() { return *empty_; }

  /// Paints those rows in sight anew that tell something else than at the last call, or all after
  /// the model told of a change; costs next to nothing where none does, so that a pass can call it
  /// often.
  void RepaintChangedRows();

  /// The selected rows from the top; nothing is computed a row but for what is selected.
  std::vector<int> SelectedRows() const;
  /// The path of the file of the first of them; empty for a group row and when none is selected.
  std::string SelectedFile() const;

  /// The first file row among them; -1 when there is none.
  int FirstSelectedFileRow() const;

  /// The narrowest one in which no shown column is out of sight.
  int LeastWidth() const;
  /// The height in which all rows are seen.
  int HeightOfRows() const;

  /// Runs `change`, which makes the model's rows anew, under the wait pointer. What is selected and
  /// current stays so, wherever it stands then, and the list where it is scrolled to.
  void ChangeRows(const std::function<void()>& change);

  /// Where on the screen the menu belongs that was asked for last.
  QPoint MenuPlace() const { return menu_place_; }

 signals:
  void spacePressed();
  /// A double click on a row, but for one on a check box.
  void rowDblClick(int Row, int Item);
  /// Enter, with the current row, which is selected if none was.
  void rowEntered(int Row, int Item);
  /// A menu is asked for at a row, which is selected, or at none: -1.
  void rowRClick(int Row, int Item);
  /// The user has sorted by another column, by none, or the other way.
  void sortChanged();

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  /// Goes to the next row whose name begins with what is typed.
  void keyboardSearch(const QString& letters) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpHeader();
  void ConnectRows();
  void SetHeights();
  void Sort(int column, Qt::SortOrder order);
  void AskForMenu(const QModelIndex& index, const QPoint& place);
  void AskForMenuAtCurrent();
  void EnterCurrent();

  GroupedRowsModel& model_;
  ColumnWidths* columns_ = nullptr;
  TypeToFind find_;
  QElapsedTimer running_;           ///< since the view was made
  std::vector<std::size_t> looks_;  ///< of the rows in sight, as they were last looked at
  QPoint menu_place_;
  EmptyText* empty_ = nullptr;
};
