#pragma once

#include <QTableView>
#include <vector>

class QLabel;

/// How wide a column is.
enum class WidthRule {
  kFixed,   ///< as told; the user can't drag it
  kFree,    ///< as told until the user drags it
  kShared,  ///< shares with its like what the others leave, until the user drags it
};

struct ColumnWidth {
  int column;
  WidthRule rule;
  int width;  ///< logical pixels; the least width of a shared column
};

/// A table of files: whole rows, no grid, painted by `RowPainter`, columns that fill the width, and
/// a text in its middle, its description too, for as long as it has no rows. Its model tells by
/// `ListRole` what the painter needs.
class ListView : public QTableView {
  Q_OBJECT

 public:
  explicit ListView(QWidget* parent = nullptr);

  void setModel(QAbstractItemModel* model) override;
  /// Widths for all columns of the model; the columns shown share the room.
  void SetColumnWidths(const std::vector<ColumnWidth>& widths);
  /// Hides or shows a column and shares the width anew.
  void ShowColumn(int column, bool show);
  /// What stands in the middle while there are no rows; without a title nothing does.
  void SetEmptyText(const QString& title, const QString& note);

  /// The selected rows from the top; nothing is computed a row but for what is selected.
  std::vector<int> SelectedRows() const;

  /// The width that a column of marks needs in the present font.
  int MarkWidth() const;

 signals:
  void spacePressed();
  /// Enter on a row.
  void rowEntered();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeEmptyText();
  void SetHeights();
  void LayOutColumns();
  void ShowEmptyText();

  struct SizedColumn : ColumnWidth {
    bool dragged = false;
  };
  std::vector<SizedColumn> columns_;
  bool laying_out_ = false;
  QWidget* empty_ = nullptr;
  QLabel* empty_picture_ = nullptr;
  QLabel* empty_title_ = nullptr;
  QLabel* empty_note_ = nullptr;
  QString described_;  ///< how the empty list is described to screen readers
};
