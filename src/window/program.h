#pragma once

#include <memory>
#include <string>

class Form1;
class QApplication;

/// All parts of the running program. From its making on, failures are reported and shown.
class Program {
 public:
  /// Also gives the application its name and its look.
  explicit Program(QApplication& application);
  ~Program();

  /// Whether the program may go on to its first window; see mMain::MayStart.
  bool MayStart();

  /// Shows the main window, on `folder` if that isn't empty, tells of settings that can't be read,
  /// and notes which program runs.
  void Start(const std::string& folder);

  /// The main window with all its parts, made at the first call.
  Form1& MainWindow();

  /// Returns when the user has closed all error windows that don't wait for an answer.
  void WaitForErrorWindows();

 private:
  Form1& Window();

  struct Parts;
  std::unique_ptr<Parts> parts_;
};

namespace mMain {

/// Does what the words behind the program's name ask for. Shows the main window and runs until it
/// is closed; ends at once, without a word, while another copy runs for this user. Answers the exit
/// code. A start that fails ends when the user has closed the error window.
int Main(int argc, char** argv);

}  // namespace mMain
