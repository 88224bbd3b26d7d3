#pragma once

#include <QApplication>

/// The application with a net under all of its events: a failure that no handler has taken is
/// reported, and the program lives on with what it holds.
class Application : public QApplication {
  Q_OBJECT

 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;
};
