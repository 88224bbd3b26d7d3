#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "filelist/grid.h"
#include "filelist/list_surface.h"
#include "filelist/row_menu.h"
#include "settings/options.h"

class GroupedRowsModel;
class LinkButton;
class ListView;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

/// The list of files and the row of controls above it. Groups and sorts the grid by itself; tells
/// what the user did by signals.
class FileListPanel : public QWidget, public ListSurface {
  Q_OBJECT

 public:
  explicit FileListPanel(Grid& grid, QWidget* parent = nullptr);

  void ListRepopulated(EmptyList reason) override;
  void ShowAnew() override;
  void RowsChanged() override;
  void RepaintRows() override;
  std::vector<int> SelectedRows() const override;

  /// What the controls hold.
  ListOptions ReadOptions() const;
  /// Sets the controls; one that changes runs its handlers.
  void Show(const ListOptions& options);

  /// Shows and hides the columns as their boxes say.
  void ShowColumns();
  /// Leaves the wide state, if the list is in it.
  void ShowNarrow();
  /// Enables or disables the list and its options; the width of the list can always be changed.
  void EnableElements(bool enable);

  /// What the menu of a row offers, or of the list where `row` is -1.
  RowMenuPlace MenuPlaceOf(int row) const;

  QPushButton* bnWideFileList;  ///< "<" when narrow, ">" when wide
  QLabel* Label21;
  QComboBox* cmbGroupBy;
  ListView* ReportControl1;
  LinkButton* lnkAddSeparator;  ///< shown while the list is empty for want of a separator

 signals:
  /// The rows are grouped anew; `index` is the position in `cmbGroupBy`.
  void groupByChanged(int index);
  void sortChanged();
  /// The folder is to get its closing separator, and to be listed.
  void separatorAsked();
  void wideToggled(bool wide);
  /// The user has changed check boxes, `row`'s among them.
  void rowChecked(int row);
  /// A double click on a file row, which speaks of the first selected row, as the menu does, or
  /// Enter with a file row the current one. The path of that row's file; empty for a group row.
  void rowDblClick(const std::string& file);
  /// A menu is asked for at `place` on the screen; `row` is the row there, or -1.
  void rowRClick(int row, QPoint place);

 private:
  void MakeControls();
  void MakeColumnBoxes();
  void MakeList();
  void LayOut();
  void ConnectControls();
  void ConnectList();
  void SetWideCaption();
  /// What the list tells while it has no rows.
  void SetEmptyText(EmptyList reason);
  void CheckSelected();
  void chColumn_Click(std::size_t column);

  Grid& grid_;
  GroupedRowsModel* model_;
  std::vector<QCheckBox*> column_boxes_;  ///< by column
  bool wide_ = false;
};
