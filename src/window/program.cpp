#include "window/program.h"

#include <QApplication>
#include <cstdio>

#include "platform/event_pump_qt.h"
#include "platform/locale_facts_qt.h"
#include "platform/prompts_qt.h"
#include "platform/settings_store_qt.h"
#include "platform/single_instance.h"
#include "platform/text_qt.h"
#include "platform/type_names_qt.h"
#include "settings/reg_settings.h"
#include "trace/err_trace.h"
#include "window/main_window.h"
#include "window/skin.h"

namespace {

/// Tells the user of a failure, and writes the report where a terminal shows it.
class PromptReporter : public ErrTrace::Reporter {
 public:
  explicit PromptReporter(Prompts& prompts) : prompts_(prompts) { ErrTrace::SetReporter(this); }
  ~PromptReporter() override { ErrTrace::SetReporter(nullptr); }

  void ShowErrorReport(const std::string& report) noexcept override {
    std::fprintf(stderr, "%s", report.c_str());
    prompts_.Tell("Sorry, an error has occurred. Try to restart the program.\n\n" +
                      report.substr(0, report.find("\r\n")),
                  PromptIcon::kCritical);
  }

 private:
  Prompts& prompts_;
};

void PrepareApplication(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("Quorvane"));
  QApplication::setApplicationDisplayName(QStringLiteral("Quorvane"));
  ApplySkin(application, true);
}

void SaveVersion(SettingsStore& settings) {
  mRegSettings::SaveVersion(
      settings, {QUORVANE_VERSION_MAJOR, QUORVANE_VERSION_MINOR, QUORVANE_VERSION_REVISION},
      text::FromQt(QCoreApplication::applicationDirPath()));
}

}  // namespace

struct Program::Parts {
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  QtEventPump events;
  QtLocaleFacts locale;
  QtTypeNames type_names;
  QtPrompts prompts;
  PromptReporter reporter{prompts};
  QtSettingsStore settings;
  RunState state;
  Records records;
  Grid grid{records};
  Constructor constructor;
  RunReports reports;
  Form1 window{
      {state, grid, constructor, reports, *files, *clock, events, locale, type_names, prompts},
      settings};
};

Program::Program(QApplication& application)
    : parts_((PrepareApplication(application), std::make_unique<Parts>())) {}
Program::~Program() = default;

Form1& Program::MainWindow() {
  return parts_->window;
}

void Program::Start() {
  parts_->window.show();
  // Told before anything is written: a damaged file is sound afterwards.
  ErrTrace::top<"mMain.Main">(ErrTrace::args(),
                              [&] { mRegSettings::CheckReadable(parts_->settings); });
  ErrTrace::top<"mMain.Main">(ErrTrace::args(), [&] { SaveVersion(parts_->settings); });
}

namespace mMain {

int Main(QApplication& application) {
  int exit_code = 1;
  ErrTrace::top<"mMain.Main">(ErrTrace::args(), [&] {
    const SingleInstance instance(InstanceFolder());
    if (instance.AnotherRuns()) {
      exit_code = 0;
      return;
    }
    Program program(application);
    program.Start();
    exit_code = QApplication::exec();
  });
  return exit_code;
}

}  // namespace mMain
