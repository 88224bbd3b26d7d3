#pragma once

#include <QLabel>

/// A muted line of plain text that asks for no room, however long it gets, and is elided to what
/// there is.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  ElidedLabel(const char* name, Qt::TextElideMode elide, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode elide_;
};
