#pragma once

#include <QPushButton>

/// A button as wide as its caption at the font in use, where a style would give more room or less.
class FittedButton : public QPushButton {
  Q_OBJECT

 public:
  struct Measures {
    int air;                               ///< left and right of the caption together
    int least = 0;                         ///< whatever the caption
    int high = 0;                          ///< the least height
    QFont::Weight weight = QFont::Normal;  ///< the heaviest type that the caption takes
  };

  FittedButton(const QString& caption, Measures measures, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  Measures measures_;
};
