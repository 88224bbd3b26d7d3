#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <string>
#include <tuple>

#include "platform/qt/text_qt.h"

/// An option and the control that shows it: a member of the options and one of the panel. A panel
/// lists its own once, as a tuple, for both ways.
template <class Options, class Value, class Panel, class Control>
struct OptionControl {
  Value Options::*option;
  Control* Panel::*control;
};
template <class Options, class Value, class Panel, class Control>
OptionControl(Value Options::*, Control* Panel::*) -> OptionControl<Options, Value, Panel, Control>;

inline void TakeValue(const QCheckBox& box, bool& option) {
  option = box.isChecked();
}
inline void TakeValue(const QComboBox& list, int& option) {
  option = list.currentIndex();
}
inline void TakeValue(const QLineEdit& field, std::string& option) {
  option = text::FromQt(field.text());
}

inline void ShowValue(bool option, QCheckBox& box) {
  box.setChecked(option);
}
inline void ShowValue(int option, QComboBox& list) {
  list.setCurrentIndex(option);
}
inline void ShowValue(const std::string& option, QLineEdit& field) {
  field.setText(text::ToQt(option));
}

/// What the controls hold.
template <class Options, class Panel, class... Rows>
Options OptionsIn(const Panel& panel, const std::tuple<Rows...>& rows) {
  Options options;
  const auto take = [&](const auto& row) { TakeValue(*(panel.*row.control), options.*row.option); };
  std::apply([&](const auto&... row) { (take(row), ...); }, rows);
  return options;
}

/// Sets the controls; one that changes runs its handlers.
template <class Options, class Panel, class... Rows>
void ShowOptions(const Options& options, const std::tuple<Rows...>& rows, Panel& panel) {
  const auto show = [&](const auto& row) { ShowValue(options.*row.option, *(panel.*row.control)); };
  std::apply([&](const auto&... row) { (show(row), ...); }, rows);
}
