#pragma once

#include <string_view>

#include "look/elided_label.h"

/// A note that shows what the options beside it make: "Example: 0001".
class SampleLabel : public ElidedLabel {
  Q_OBJECT

 public:
  SampleLabel(const char* name, QWidget* parent);

  /// `sample` is the text behind "Example: ", as raw bytes.
  void ShowSample(std::string_view sample);
};
