#pragma once

#include "look/elided_label.h"

/// A file with its old and its new name, "a.txt → b.txt", each elided in its middle, so that the
/// arrow stays in sight and both are read in their own direction. The tooltip has both whole.
class ExampleLabel : public ElidedLabel {
  Q_OBJECT

 public:
  explicit ExampleLabel(QWidget* parent);

  /// Without a new name the old one stands alone, without an old one nothing.
  void ShowNames(const QString& old_name, const QString& new_name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString old_name_;
  QString new_name_;
};
