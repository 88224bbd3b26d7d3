#pragma once

#include <QLabel>
#include <string_view>

/// A note that shows what the options beside it make: "Example: 0001". However long it gets it asks
/// for no room, and is elided to what there is.
class SampleLabel : public QLabel {
  Q_OBJECT

 public:
  SampleLabel(const char* name, QWidget* parent);

  /// `sample` is the text behind "Example: ", as raw bytes.
  void ShowSample(std::string_view sample);

 protected:
  void paintEvent(QPaintEvent* event) override;
};
