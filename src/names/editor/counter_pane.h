#pragma once

#include "names/editor/option_pane.h"

class NumberField;
class QCheckBox;
class SampleLabel;

/// The options of a counter element: its start, its width, and whether it starts again at each
/// group.
class CounterPane : public OptionPane {
  Q_OBJECT

 public:
  explicit CounterPane(const Parts& parts);

 protected:
  void Fill(const ConstrItem& item) override;

 private:
  void BuildControls();
  void Lay();
  void TakeRange();
  void UpdateSample();

  NumberField* fdStartValue;
  QComboBox* cmbRange;
  QCheckBox* chResetCounter;
  SampleLabel* lbRangeSample;
};
