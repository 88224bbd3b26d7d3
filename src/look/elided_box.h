#pragma once

#include <QComboBox>

/// A list to choose from that may be narrower than its entry: closed, it shows the beginning, and
/// the whole entry as a tooltip.
class ElidedBox : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The entry as far as there is room for it.
  QString Elided(const QStyleOptionComboBox& box) const;
};
