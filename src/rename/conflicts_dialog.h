#pragma once

#include "core/run_state.h"
#include "look/dialog_frame.h"
#include "platform/settings_store.h"

class QCheckBox;
class QLabel;
class QLineEdit;

/// The dialog "Conflicts": whether a taken name is numbered, and what stands around the number.
/// "OK" changes the run state, for the next run, and the settings; all else changes nothing.
class Form8 : public DialogFrame {
  Q_OBJECT

 public:
  /// `state` and `settings` outlive the dialog.
  Form8(RunState& state, SettingsStore& settings, QWidget* parent);

  QCheckBox* chConflict;
  QLabel* Label2;
  QLineEdit* fdConflictLeft;
  QLabel* Label4;
  QLineEdit* fdConflictRight;
  QLabel* Label3;

 private:
  void MakeControls();
  QLabel* NewTemplateLabel(const char* name, const QString& text, QWidget* buddy);
  QLineEdit* NewTemplateField(const char* name);
  void LayOut();
  void Form_Load();
  void chConflict_Click();
  void bnOK_Click() override;

  RunState& state_;
  SettingsStore& settings_;
};
