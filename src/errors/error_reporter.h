#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <set>
#include <string>

#include "errors/error_windows.h"
#include "errors/report_file.h"
#include "trace/err_trace.h"

/// Takes every report from the trace engine: appends it to the report file and shows the error
/// window. Lives as long as the program; from its making to its end it is the engine's reporter,
/// and gives the engine its facts.
///
/// What fails while a widget is painted fails again at each repaint, and closing the error window
/// is one: failures of one kind (number and procedure) are then told once, and shown when the
/// painting is over.
///
/// A developer gets the report itself instead, in one window that isn't modal and shows the last.
class ErrorReporter : public ErrTrace::Reporter {
 public:
  /// The services outlive the reporter.
  explicit ErrorReporter(const Services& services, Wait wait = SystemWait());
  ErrorReporter(const ErrorReporter&) = delete;
  ErrorReporter& operator=(const ErrorReporter&) = delete;
  ~ErrorReporter() override;

  /// From now on, and while `window` lives, error windows are modal.
  void MainWindowLoaded(QWidget* window) { main_window_ = window; }

  /// Error windows that opened before there was a main window stand in front of `window` from now
  /// on, and end with it: one left behind unseen would keep the program from ending.
  void GiveWindowsTo(QWidget& window);

  void SetStartFlags(StartFlags flags) { sources_.flags = flags; }

  /// Lets events run until no error window is open; for a start that failed before there was a
  /// main window to keep the program alive.
  void WaitForWindows();

  /// Saves the report and shows a window. Without a QApplication, and when neither window nor
  /// message can be shown, the report goes to standard error.
  void ShowErrorReport(const std::string& report, const std::string& slip) noexcept override;

 private:
  void ShowWindow(const std::string& report, const std::string& slip) noexcept;
  QWidget* Parent() const;
  void Open(Form11& window);

  ReportSources sources_;
  QPointer<QWidget> main_window_;
  /// How many ways to tell the user are being tried: the window (1), if it can't be made a plain
  /// message (2), if that fails too standard error.
  int making_ = 0;
  std::unique_ptr<frmShowError> developers_window_;
  std::set<std::string> told_in_painting_;  ///< the kinds of failures
  QObject later_;                           ///< ends what is still to be shown with the reporter
};
