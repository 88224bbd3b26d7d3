#pragma once

#include <QApplication>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// Which part of a widget is painted anew.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

  /// Since the last call, with what is due now.
  QRect Painted() {
    QApplication::processEvents();
    return std::exchange(region_, {}).boundingRect();
  }

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  QRegion region_;
};
