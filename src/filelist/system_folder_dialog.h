#pragma once

#include "look/dialog_frame.h"
#include "platform/settings_store.h"

class QCheckBox;
class QLabel;
class QPlainTextEdit;

/// Asks whether to go on although the list would touch the system's own folders; accepted only by
/// "Yes". Its box decides whether this is asked again, and is stored as soon as it changes; it
/// starts ticked, for whoever asks has read what is stored.
class Form4 : public DialogFrame {
  Q_OBJECT

 public:
  /// `folders`, one a line, as `SystemFolder` gives them. `settings` outlives the dialog.
  Form4(const std::string& folders, SettingsStore& settings, QWidget* parent);

  QLabel* picExclamation;
  QLabel* Label1;
  QPlainTextEdit* fdSystemFolders;
  QLabel* Label2;
  QLabel* Label3;
  QCheckBox* chAllowSystemRename;

 private:
  void MakeControls();
  void LayOut();
  void ShowFolders(const std::string& folders);
  void chAllowSystemRename_Click();

  SettingsStore& settings_;
};
