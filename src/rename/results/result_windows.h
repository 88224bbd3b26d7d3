#pragma once

#include <QDialog>

#include "platform/files.h"
#include "platform/services.h"
#include "platform/settings_store.h"
#include "rename/results/result_grid.h"

class ListView;
class QAction;
class QLabel;
class QMenu;
class QModelIndex;
class QPushButton;
class ResultModel;

/// The services of a result window; all outlive it.
struct ResultServices {
  FileSystem& files;
  Prompts& prompts;
  Shell& shell;
  SettingsStore& settings;
};

/// One of the two windows, "Form3" and "Form7", that tell what a run could not do as planned.
/// Which one it is stands in its `ResultKind`. Made once and hidden; holds no record itself.
class ResultWindow : public QDialog {
  Q_OBJECT

 public:
  /// `kind` and `reports` outlive the window, too.
  ResultWindow(const ResultKind& kind, const RunReports& reports, const ResultServices& services,
               QWidget* parent);

  /// Shows the records as they stand, and returns when the user has closed the window.
  void ShowReport();

  ListView* ReportControl1;
  QLabel* lbFilesCount;
  QPushButton* bnOK;

 private:
  /// The handlers of each window stand in the trace under that window's name.
  std::string Handler(std::string_view procedure) const;
  void Form_Load();
  void MakeList();
  int ReasonWidth() const;
  void LayOut();
  void Connect();
  void SortBy(int column, Qt::SortOrder order);
  void RowDblClick(const QModelIndex& index);
  void RowRClick(const QPoint& place);
  void ShowPopup(const QPoint& place);
  QAction* AddButton(QMenu& Controls, int ID, const QString& Caption, bool BeginGroup);
  void CommandBars1_Execute(int Control);
  bool IsFileRow(int row) const;
  void OpenInExplorerList(int row);

  const ResultKind& kind_;
  const RunReports& reports_;
  ResultServices services_;
  ResultGrid grid_;
  ResultModel* model_;
};
