#pragma once

#include "look/card.h"
#include "names/editor/option_controls.h"

class NumberField;
class QCheckBox;
class QComboBox;
class SampleLabel;

/// The options of a counter element: its start, its width, and whether it starts again at each
/// group.
class CounterPane : public Card {
  Q_OBJECT

 public:
  CounterPane(ShownItem item, QWidget* parent);

  /// Fills the controls from the shown element, and derives its format and the sample. What
  /// differs from what the controls held counts as an edit.
  void ShowItem();

 signals:
  void optionChanged();

 private:
  void BuildControls();
  void Lay();
  void TakeRange();
  void UpdateSample();

  ShownItem item_;
  NumberField* fdStartValue;
  QComboBox* cmbRange;
  QCheckBox* chResetCounter;
  SampleLabel* lbRangeSample;
};
