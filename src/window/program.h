#pragma once

#include <memory>

class Form1;
class QApplication;

/// All parts of the running program and its main window, built together.
class Program {
 public:
  /// Also gives the application its name and its look.
  explicit Program(QApplication& application);
  ~Program();

  Form1& MainWindow();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

namespace mMain {

/// Shows the main window and runs until it is closed. Answers the exit code.
int Main(QApplication& application);

}  // namespace mMain
