#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "look/card.h"
#include "names/editor/option_controls.h"
#include "platform/clock.h"
#include "platform/services.h"
#include "platform/settings_store.h"

class QComboBox;
class QGridLayout;
class QLineEdit;
class SampleLabel;

/// What differs between the panes of the two date elements.
struct DateControls;

/// The services that the editor and its option panes use; all outlive them.
struct PaneServices {
  Prompts& prompts;
  Clock& clock;
  LocaleFacts& locale;
  SettingsStore& settings;
};

/// The options of a date element: up to three parts, the separator between them, and a sample.
class DatePane : public Card {
  Q_OBJECT

 public:
  /// `kind` is kFileDate or kTodaysDate.
  DatePane(ItemType kind, const PaneServices& services, ShownItem item, QWidget* parent);

  /// Fills the controls from the shown element, and derives its format and the sample. What
  /// differs from what the controls held counts as an edit.
  void ShowItem();

 signals:
  void optionChanged();

 private:
  static constexpr int kParts = 3;

  void AddColumn(QGridLayout* grid, const QString& caption, QWidget* field);
  void UpdateSample();

  const DateControls& controls_;
  PaneServices services_;
  ShownItem item_;
  std::array<QComboBox*, kParts> parts_;
  QLineEdit* separator_;
  SampleLabel* sample_;
};
