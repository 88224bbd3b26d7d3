#pragma once

#include <QApplication>

/// Gives the windows of the program their icon.
void SetIcon();

/// The application with the rules of all its controls, and a net under all of its events: a failure
/// that no handler has taken is reported, and the program lives on with what it holds.
class Application : public QApplication {
  Q_OBJECT

 public:
  /// Both as `main` has them; they outlive the application.
  Application(int& argc, char** argv);

  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;
};
