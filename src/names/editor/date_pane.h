#pragma once

#include <array>

#include "names/editor/option_pane.h"

class QGridLayout;
class SampleLabel;

/// The options of a date element: up to three parts, the separator between them, and a sample.
class DatePane : public OptionPane {
  Q_OBJECT

 public:
  /// `date` stands in the names of its controls: "Date" in "cmbDate(0)".
  DatePane(const Parts& parts, const char* date);

 protected:
  void Fill(const ConstrItem& item) override;

 private:
  QComboBox* NewPartPick(const std::string& name, std::size_t part);
  void AddColumn(QGridLayout* grid, const QString& caption, QWidget* field);
  void UpdateSample();

  const std::string date_;
  std::array<QComboBox*, 3> parts_;
  QLineEdit* separator_;
  SampleLabel* sample_;
};
