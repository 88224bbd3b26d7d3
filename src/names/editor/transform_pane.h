#pragma once

#include "names/editor/option_pane.h"

class NumberField;
class QLabel;
class QTabWidget;

/// What differs in the names of the controls of the panes of transformed elements. Labels are
/// named by the rule: "lb" for "fd".
struct TransformNames {
  std::string pages;        ///< the control with the pages
  std::string reset;        ///< the button "reset"
  std::string part;         ///< "File" in "cmbCutFile", "fdCutFileN", "cmbAddFile" and the like
  std::string letter_case;  ///< "OldFile" in "cmbCaseOldFile"
  std::string replace;      ///< "Ext" in "fdReplaceExt1"
};

/// The options of a transformed element: letter case, and the pages "Remove", "Replace" and
/// "Add / Insert". A page that changes something bears a dot.
class TransformPane : public OptionPane {
  Q_OBJECT

 public:
  TransformPane(const Parts& parts, const TransformNames& names);

 protected:
  void Fill(const ConstrItem& item) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitStyle();
  /// Gives the labels of all pages one width, so that all fields start on one line.
  void FitLabels();
  void MarkPages();
  void BuildCase(const std::string& letter_case);
  void BuildRemovePage(const TransformNames& names);
  void BuildReplacePage(const std::string& replace);
  void BuildAddPage(const std::string& part);
  QComboBox* NewModePick(QWidget* parent, const std::string& name,
                         std::int32_t TransformOptions::*mode,
                         std::span<const std::string_view> entries,
                         std::function<void()> show_fields = {});
  QLineEdit* NewTextField(QWidget* parent, const std::string& name,
                          std::string TransformOptions::*text, bool goes_into_names);
  NumberField* NewNumberField(QWidget* parent, const std::string& name,
                              std::int32_t TransformOptions::*number);
  template <class Value>
  void Store(Value TransformOptions::*option, Value value);
  /// Hides `field` where `tells` is null; it is the tooltip else.
  void ShowField(QWidget* field, const char* tells);
  void ShowCutFields();
  void ShowAddFields();

  QComboBox* case_;
  QTabWidget* pages_;
  QComboBox* cut_;
  NumberField* cut_n_;
  NumberField* cut_x_;
  QLineEdit* cut_text_;
  QLineEdit* replace1_;
  QLineEdit* replace2_;
  QComboBox* add_;
  QLineEdit* add_text1_;
  QLineEdit* add_text2_;
  NumberField* add_n_;
  bool built_ = false;
};
