#pragma once

#include <QDialog>
#include <string>

#include "platform/services.h"
#include "platform/settings_store.h"

class QLineEdit;
class QPushButton;

/// The dialog "Custom text": asks for the text of a new text element.
class Form5 : public QDialog {
  Q_OBJECT

 public:
  /// `prompts` and `settings` must outlive the dialog.
  Form5(Prompts& prompts, SettingsStore& settings, QWidget* parent);

  /// The text that was accepted; empty after a cancel.
  const std::string& Text() const { return text_; }

  QLineEdit* fdText;
  QPushButton* bnOK;
  QPushButton* bnCancel;

 private:
  void bnOK_Click();

  Prompts& prompts_;
  std::string text_;
};

/// Shows the dialog over `parent` and answers its text, empty when the user cancelled.
std::string GetTextToInsert(Prompts& prompts, SettingsStore& settings, QWidget* parent);
