#pragma once

#include <QWidget>

class ChipBar;
class QToolButton;

/// The sunken ground on which the chips lie. Where they need more room than there is, two arrows at
/// its right end scroll them, and so does a chip that is dragged to an end.
class ChipWell : public QWidget {
  Q_OBJECT

 public:
  ChipWell(ChipBar* bar, QWidget* parent);

  /// Makes room for the chips as they are now, the selected one wholly in view. The well does so by
  /// itself when its size or style changes, not when the chips do.
  void ShowSelected();

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QToolButton* NewArrow(Qt::ArrowType arrow, const char* name, const QString& tells);
  int Room() const;
  void ScrollTo(int offset);
  void ScrollByOne(int step);

  ChipBar* bar_;
  QWidget* view_;
  QToolButton* left_;
  QToolButton* right_;
  int offset_ = 0;  ///< what of the chips is hidden at the left
};
