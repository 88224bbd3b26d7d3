#pragma once

#include <cstdint>
#include <string>

#include "look/dialog_frame.h"
#include "platform/services.h"
#include "platform/settings_store.h"

class QLineEdit;

/// The dialog "Save template as": asks for the name of a template, and before one is overwritten.
class Form2 : public DialogFrame {
  Q_OBJECT

 public:
  /// `prompts` and `settings` outlive the dialog.
  Form2(Prompts& prompts, SettingsStore& settings, QWidget* parent);

  std::string TemplateNameOld;    ///< the name that stands there when the dialog opens
  std::string TemplateNameNew;    ///< the accepted one; empty after a cancel
  std::int16_t RewriteExist = 0;  ///< the number of the template to overwrite; 0: a new one

  QLineEdit* fdTemplate;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Form_Load();
  void bnOK_Click() override;
  /// Tells what is wrong with a name.
  bool IsRefused(const std::string& name);
  /// Asks before an old template goes; answers whether the name may be taken.
  bool MayTake(const std::string& name);

  Prompts& prompts_;
  SettingsStore& settings_;
};
