#pragma once

class QApplication;

namespace mMain {

/// Builds the program's parts and its main window, shows it, and runs until it is closed. Answers
/// the exit code.
int Main(QApplication& application);

}  // namespace mMain
