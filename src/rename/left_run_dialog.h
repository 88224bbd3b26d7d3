#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/run_state.h"
#include "look/dialog_frame.h"
#include "platform/services.h"
#include "rename/left_run_shown.h"
#include "rename/left_runs.h"

class ElidedLabel;
class GroupedRowsModel;
class ListView;
class QLabel;
class QProgressBar;

/// Tells at a start of a run that could not be undone in its time, and lets the user put its files
/// back, keep them as they are, or decide at a later start, which Enter and Esc mean at first: who
/// presses them unawares changes nothing.
class Form12 : public DialogFrame {
  Q_OBJECT

 public:
  /// `services` outlive the dialog.
  Form12(const Services& services, QWidget* parent);

  /// What is to be told of; null: nothing. Asks `go_on` now and then.
  using Reader = std::function<std::unique_ptr<LeftRun>(const GoOn& go_on)>;

  /// Returns when the user has decided and it is done. Answers whether nothing of this run is left
  /// to be asked about. While it is read, events run, and when that takes long the dialog is there
  /// already. Closed while files are put back, it cancels that first.
  bool ShowLeftRun(const Reader& read);

  /// Tells of `run`, and what may be done with it.
  void Ask(std::unique_ptr<LeftRun> run);

  QLabel* lbHeading;
  QLabel* lbStory;
  ElidedLabel* lbFolder;
  QLabel* lbCounts;
  ListView* ReportControl1;
  QProgressBar* paneProgress;
  ElidedLabel* lbFilesCount;  ///< how many of the files are listed, or how far putting back is
  QPushButton* bnPutBack;
  QPushButton* bnKeep;

 public slots:
  /// Cancels what is under way; else leaves the decision to a later start.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  enum class Stage { kReading, kAsking, kWorking, kDone };

  void MakeTexts();
  void MakeList();
  void MakeButtons();
  void LayOut();
  std::unique_ptr<LeftRun> Read(const Reader& read);
  void ShowStage(Stage stage);
  void ShowTexts(const LeftRunTexts& texts);
  void ShowFiles();
  void ShowProgress();
  void bnOK_Click() override { reject(); }
  void bnPutBack_Click();
  void bnKeep_Click();

  const Services& services_;
  std::unique_ptr<LeftRun> run_;
  std::vector<LeftRun::File> files_;  ///< the first of them
  RecordList list_;
  GroupedRowsModel* model_;
  RunState state_;  ///< of putting back
  Stage stage_ = Stage::kReading;
  bool settled_ = false;  ///< nothing is left to be asked about
  bool later_ = false;
  bool close_wanted_ = false;
};
