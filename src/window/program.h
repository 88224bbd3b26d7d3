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

  /// Shows the main window, tells of settings that can't be read, and notes which program runs.
  void Start();

  Form1& MainWindow();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

namespace mMain {

/// Shows the main window and runs until it is closed; ends at once, without a word, while another
/// copy runs for this user. Answers the exit code.
int Main(QApplication& application);

}  // namespace mMain
