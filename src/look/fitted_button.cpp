#include "look/fitted_button.h"

#include <algorithm>

FittedButton::FittedButton(const QString& caption, Width width, QWidget* parent)
    : QPushButton(caption, parent), width_(width) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize FittedButton::sizeHint() const {
  QFont heaviest = font();
  heaviest.setWeight(width_.weight);
  const int wide = QFontMetrics(heaviest).size(Qt::TextShowMnemonic, text()).width();
  return {std::max(wide + width_.air, width_.least), QPushButton::sizeHint().height()};
}
