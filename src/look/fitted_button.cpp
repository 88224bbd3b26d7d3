#include "look/fitted_button.h"

#include <algorithm>

FittedButton::FittedButton(const QString& caption, Measures measures, QWidget* parent)
    : QPushButton(caption, parent), measures_(measures) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize FittedButton::sizeHint() const {
  QFont heaviest = font();
  heaviest.setWeight(measures_.weight);
  const int wide = QFontMetrics(heaviest).size(Qt::TextShowMnemonic, text()).width();
  return {std::max(wide + measures_.air, measures_.least),
          std::max(QPushButton::sizeHint().height(), measures_.high)};
}
