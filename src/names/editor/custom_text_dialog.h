#pragma once

#include <string>
#include <string_view>

#include "look/dialog_frame.h"
#include "platform/services.h"
#include "platform/settings_store.h"

class QLineEdit;

/// The dialog "Custom text": asks for the text of a text element.
class Form5 : public DialogFrame {
  Q_OBJECT

 public:
  /// `prompts` and `settings` must outlive the dialog.
  Form5(Prompts& prompts, SettingsStore& settings, QWidget* parent);

  /// The text that was accepted; empty after a cancel.
  const std::string& Text() const { return text_; }

  QLineEdit* fdText;

 private:
  void bnOK_Click() override;

  Prompts& prompts_;
  std::string text_;
};

/// Shows the dialog over `parent`, at first with `text` selected in it, and answers its text, empty
/// when the user cancelled.
std::string GetTextToInsert(Prompts& prompts, SettingsStore& settings, std::string_view text,
                            QWidget* parent);
