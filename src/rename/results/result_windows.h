#pragma once

#include "look/dialog_frame.h"
#include "platform/services.h"
#include "rename/results/result_kinds.h"

class GroupedRowsModel;
class ListView;
class QLabel;

/// One of the two windows, "Form3" and "Form7", that tell what a run could not do as planned.
/// Which one it is stands in its `ResultKind`. Holds no record itself.
class ResultWindow : public DialogFrame {
  Q_OBJECT

 public:
  /// All but the parent outlive the window.
  ResultWindow(const ResultKind& kind, const RunReports& reports, const Services& services,
               QWidget* parent);

  /// Shows the records as they stand, and returns when the user has closed the window.
  void ShowReport();

  ListView* ReportControl1;
  QLabel* lbFilesCount;

 private:
  void Form_Load();
  void MakeList();
  void LayOut();
  void Connect();
  /// The size in which all rows are seen, as far as the main window allows.
  QSize SizeOfRows() const;
  void CommandBars1_Execute(int Control);
  void OpenInExplorerList(int row);

  const ResultKind& kind_;
  const Services& services_;
  RecordList list_;
  GroupedRowsModel* model_;
};
