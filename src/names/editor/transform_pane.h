#pragma once

#include <functional>

#include "look/card.h"
#include "names/editor/option_controls.h"
#include "platform/services.h"

class NumberField;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
struct TransformControls;

/// The options of a source name, extension or parent folder element: letter case, and the pages
/// "Remove", "Replace" and "Add / Insert". A page that changes something bears a dot. Every edit
/// goes into the shown element at once, a number when its field is left.
class TransformPane : public Card {
  Q_OBJECT

 public:
  /// `kind` is kSourceFileName, kExtension or kParentFolderName; `prompts` must outlive the pane.
  TransformPane(ItemType kind, Prompts& prompts, ShownItem item, QWidget* parent);

  /// Fills the controls from the shown element, and shows the fields of its modes. What differs
  /// from what the controls held counts as an edit.
  void ShowItem();

 signals:
  /// Sent first of all that a change does.
  void optionChanged();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void FitStyle();
  void MarkPages();
  void BuildCase();
  void BuildRemovePage();
  void BuildReplacePage();
  void BuildAddPage();
  QComboBox* NewModePick(const char* control, std::int32_t ConstrItem::*mode,
                         std::span<const char* const> entries, std::function<void()> show_fields);
  QLineEdit* NewTextField(const struct TextOption& option, bool filtered);
  NumberField* NewNumberField(const char* control, std::int32_t ConstrItem::*number);
  void ShowCutFields();
  void ShowAddFields();

  const TransformControls& controls_;
  const TransformFields& fields_;
  Prompts& prompts_;
  ShownItem item_;

  QComboBox* case_;
  QTabWidget* pages_ = nullptr;
  QComboBox* cut_;
  QLabel* cut_n_label_;
  NumberField* cut_n_;
  QLabel* cut_x_label_;
  NumberField* cut_x_;
  QLabel* cut_text_label_;
  QLineEdit* cut_text_;
  QLineEdit* replace1_;
  QLineEdit* replace2_;
  QComboBox* add_;
  QLabel* add_text1_label_;
  QLineEdit* add_text1_;
  QLabel* add_text2_label_;
  QLineEdit* add_text2_;
  QLabel* add_n_label_;
  NumberField* add_n_;
};
