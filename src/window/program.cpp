#include "window/program.h"

#include <QApplication>

#include "errors/error_reporter.h"
#include "platform/event_pump_qt.h"
#include "platform/folders_qt.h"
#include "platform/locale_facts_qt.h"
#include "platform/prompts_qt.h"
#include "platform/shell_qt.h"
#include "platform/type_names_qt.h"
#include "trace/err_trace.h"
#include "window/main_window.h"
#include "window/skin.h"

namespace {

void PrepareApplication(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("Quorvane"));
  QApplication::setApplicationDisplayName(QStringLiteral("Quorvane"));
  ApplySkin(application, true);
}

}  // namespace

struct Program::Parts {
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  std::unique_ptr<SystemFacts> facts = MakeSystemFacts();
  QtEventPump events;
  QtLocaleFacts locale;
  QtTypeNames type_names;
  QtFolders folders;
  QtPrompts prompts;
  QtShell shell;
  ErrorReporter reporter{{*facts, locale, folders}, *files, prompts, shell};
  RunState state;
  Records records;
  Grid grid{records};
  Constructor constructor;
  RunReports reports;
  std::unique_ptr<Form1> window;  ///< last, for it uses all of the above
};

Program::Program(QApplication& application)
    : parts_((PrepareApplication(application), std::make_unique<Parts>())) {}
Program::~Program() = default;

Form1& Program::MainWindow() {
  Parts& p = *parts_;
  if (p.window == nullptr) {
    p.window = std::make_unique<Form1>(CommandParts{p.state, p.grid, p.constructor, p.reports,
                                                    *p.files, *p.clock, p.events, p.locale,
                                                    p.type_names, p.prompts});
    p.reporter.MainWindowLoaded(p.window.get());
  }
  return *p.window;
}

void Program::WaitForErrorWindows() {
  parts_->reporter.WaitForWindows();
}

namespace mMain {

int Main(QApplication& application) {
  int exit_code = 1;
  Program program(application);
  const bool started = ErrTrace::top<"mMain.Main">(ErrTrace::args(), [&] {
    program.MainWindow().show();
    exit_code = QApplication::exec();
  });
  if (!started) program.WaitForErrorWindows();
  return exit_code;
}

}  // namespace mMain
