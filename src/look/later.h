#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

class QWidget;

/// What the first picture of a window doesn't need: it is done piece by piece when that stands on
/// the screen, with the window answering in between. Whoever may need a piece before makes sure of
/// it by itself; a piece that finds its work done does nothing.
class Later : public QObject {
  Q_OBJECT

 public:
  Later();

  /// Adds a piece, unless `owner` is gone by then. Without a `later`, it is done at once.
  static void Do(Later* later, QObject* owner, std::function<void()> piece);

  /// Begins when `window` has been painted; when it is shown and nothing paints it, soon after.
  void BeginAfter(QWidget& window);

  /// Does at once all that is left.
  void DoAll();

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  struct Piece {
    QPointer<QObject> owner;
    std::function<void()> work;
  };

  void DoNext();

  std::deque<Piece> pieces_;
  QTimer timer_;
};
