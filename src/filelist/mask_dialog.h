#pragma once

#include <string>

#include "look/dialog_frame.h"
#include "platform/services.h"

class QLabel;
class QLineEdit;

/// The dialog that asks for the mask by which rows are checked or unchecked.
class Form6 : public DialogFrame {
  Q_OBJECT

 public:
  /// Shows `mask`, all of it selected. `services` outlives the dialog.
  Form6(const QString& caption, const std::string& mask, const Services& services, QWidget* parent);

  bool OK = false;   ///< the user has accepted
  std::string Mask;  ///< what was accepted, without blanks around it

  QLabel* Label1;
  QLineEdit* fdMask;

 private:
  void LayOut();
  void bnOK_Click() override;

  Prompts& prompts_;
};
