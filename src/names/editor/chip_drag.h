#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <optional>

class ChipBar;
class QMouseEvent;
class QWidget;

/// Lets the user drag a chip of a bar to another place. A mark shows where it would go; nothing
/// moves before it is dropped there, and Esc gives the drag up. Until then the bar gets no keys.
class ChipDrag : public QObject {
  Q_OBJECT

 public:
  /// Belongs to `bar`, whose `moveRequested` it emits for a chip that is dropped elsewhere.
  explicit ChipDrag(ChipBar* bar);

  bool eventFilter(QObject* bar, QEvent* event) override;

 signals:
  /// The pointer holds a chip near an end of what is seen of the bar, or beyond: that many pixels
  /// more of its right side (positive) or left side are wanted. Comes again while it stays there.
  void scrollWanted(int pixels);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  bool IsOn() const { return from_ >= 0; }
  bool FilterInput(QEvent* event);
  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void Drop();
  void End();
  int Target() const;
  int WantedScroll() const;
  void ShowTarget();

  ChipBar* bar_;
  QWidget* mark_;
  QBasicTimer scroll_;
  std::optional<QPoint> pressed_;  ///< on the screen, of a press on a chip
  QPoint pointer_;                 ///< on the screen
  int from_ = -1;                  ///< the chip that is dragged; -1: none is
};
