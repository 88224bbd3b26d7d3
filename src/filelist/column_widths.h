#pragma once

#include <QObject>
#include <vector>

#include "filelist/record_list.h"

class QTableView;

/// How wide the columns of a table are: as its list tells, together as wide as the view. A width
/// that the user has dragged stays; names share what is left and never get narrower than told, a
/// path gives way to them first, and then the table scrolls sideways.
class ColumnWidths : public QObject {
  Q_OBJECT

 public:
  /// Hides the columns that are not shown from the start, and lays the others out. `view` has its
  /// model already; both outlive the widths.
  ColumnWidths(QTableView& view, const RecordList& list);

  /// Shares the width anew.
  void LayOut();
  void Show(int column, bool show);

  /// The narrowest view in which no shown column is out of sight.
  int LeastWidth() const;

 private:
  struct SizedColumn {
    int wanted = 0;  ///< in the font of the view
    bool dragged = false;
  };

  void SetUpColumns();
  /// Makes a column as wide as what is seen of it, but leaves all names in sight.
  void Fit(int column);
  const ColumnWidth& Told(int column) const {
    return list_.Columns()[static_cast<std::size_t>(column)].width;
  }
  bool IsShared(int column) const;
  /// As narrow as a column gets when the others need its room.
  int Yielded(int column) const;
  /// What is told or what its heading needs, whichever is more.
  int Narrowest(int column) const;
  int HeadingWidth(int column) const;
  int WidthSeen(int column) const;
  /// What the others leave when they have yielded; the names and the fixed columns, or all.
  int RoomBeside(int column, bool names_only) const;
  std::vector<int> Shown() const;

  QTableView& view_;
  const RecordList& list_;
  std::vector<SizedColumn> columns_;
  bool laying_out_ = false;
};
