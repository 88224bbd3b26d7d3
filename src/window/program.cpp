#include "window/program.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <optional>

#include "commands/start_up.h"
#include "errors/error_reporter.h"
#include "look/later.h"
#include "look/skin.h"
#include "platform/build_facts.h"
#include "platform/journal_file.h"
#include "platform/qt/fonts_ahead.h"
#include "platform/qt/services_qt.h"
#include "platform/qt/settings_store_qt.h"
#include "platform/qt/shell_qt.h"
#include "platform/qt/text_qt.h"
#include "platform/single_instance.h"
#include "rename/left_runs.h"
#include "settings/reg_settings.h"
#include "trace/err_trace.h"
#include "window/application.h"
#include "window/main_window.h"
#include "window/orderly_end.h"

namespace {

void PrepareApplication(QApplication& application) {
  QApplication::setApplicationName(QLatin1String(build_facts::kTitle));
  ApplySkin(application, true);
}

void SaveVersion(SettingsStore& settings) {
  using namespace build_facts;
  mRegSettings::SaveVersion(settings, {kMajor, kMinor, kRevision},
                            text::FromQt(QCoreApplication::applicationDirPath()));
}

}  // namespace

struct Program::Parts {
  OrderlyEnd end;  ///< first, for a signal may come at any time
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  std::unique_ptr<SystemFacts> facts = MakeSystemFacts();
  QtEventPump events;
  QtLocaleFacts locale;
  QtTypeNames type_names;
  QtFolders folders;
  QtPrompts prompts;
  QtShell shell{events};
  QtSettingsStore settings;
  const Services services{*files,     *clock,  *facts,  events, locale,
                          type_names, folders, prompts, shell,  settings};
  ErrorReporter reporter{services};
  Session session;
  Later later;                               ///< what is made once the window has been painted
  std::unique_ptr<SingleInstance> instance;  ///< held from the start to the end
  std::unique_ptr<Form1> window;             ///< last, for it uses all of the above
};

Program::Program(QApplication& application)
    : parts_((PrepareApplication(application), std::make_unique<Parts>())) {}
Program::~Program() = default;

bool Program::MayStart() {
  parts_->instance = std::make_unique<SingleInstance>(InstanceFolder());
  return mMain::MayStart(*parts_->facts, parts_->prompts, parts_->instance->AnotherRuns());
}

Form1& Program::MainWindow() {
  Form1& window = Window();
  parts_->later.DoAll();
  return window;
}

Form1& Program::Window() {
  Parts& p = *parts_;
  if (p.window == nullptr) {
    p.window = std::make_unique<Form1>(p.session, p.services, nullptr, &p.later);
    Later::Do(&p.later, qApp, [] { SetIcon(); });
    p.reporter.MainWindowLoaded(p.window.get());
  }
  return *p.window;
}

void Program::Start(const std::string& folder) {
  Parts& p = *parts_;
  ErrTrace::top("mMain.Main",
                [&] { p.reporter.SetStartFlags(mMain::LookForStartFiles(*p.files)); });
  p.session.journal.KeepIn(JournalFolder());
  Form1& window = Window();
  if (!folder.empty()) window.TakeSourceFolder(folder);
  p.later.BeginAfter(window);
  window.show();
  p.reporter.GiveWindowsTo(window);
  // Told before anything is written: a damaged file is sound afterwards.
  ErrTrace::top("mMain.Main", [&] { mRegSettings::CheckReadable(p.settings); });
  ErrTrace::top("mMain.Main", [&] { SaveVersion(p.settings); });
  // Before any journal of this process is made. The window is there first, and can be closed.
  ErrTrace::top("mMain.Main", [&] {
    const std::vector<std::string> journals = LeftJournals(JournalFolder());
    const auto tell = [this, journals] { MainWindow().TellOfLeftRuns(journals); };
    if (!journals.empty()) QMetaObject::invokeMethod(p.window.get(), tell, Qt::QueuedConnection);
  });
}

void Program::WaitForErrorWindows() {
  parts_->reporter.WaitForWindows();
}

namespace mMain {

namespace {

std::vector<std::string> Words(int argc, char** argv) {
  return {argv + std::min(argc, 1), argv + argc};
}

// Answers 1 for what could not be written, as on a full disk.
int Tell(const CommandLine& line) {
  std::FILE* const out = line.exit_code == 0 ? stdout : stderr;
  const bool told = std::fputs(line.told.c_str(), out) >= 0 && std::fflush(out) == 0;
  return told ? *line.exit_code : 1;
}

int Run(QApplication& application, const std::string& folder) {
  int exit_code = 1;
  std::optional<Program> program;
  const bool started = ErrTrace::top("mMain.Main", [&] {
    program.emplace(application);
    if (!program->MayStart()) {
      exit_code = 0;
      return;
    }
    program->Start(folder);
    exit_code = QApplication::exec();
  });
  if (!started && program) program->WaitForErrorWindows();
  return exit_code;
}

}  // namespace

int Main(int argc, char** argv) {
  const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  // Help needs no display; an unknown word may be one that Qt knows and takes out.
  const CommandLine help = ReadCommandLine(*files, Words(argc, argv));
  if (help.exit_code == 0) return Tell(help);
  const std::future<void> fonts = ReadFontsAhead();
  Application application(argc, argv);
  fonts.wait();
  const CommandLine line = ReadCommandLine(*files, Words(argc, argv));
  return line.exit_code ? Tell(line) : Run(application, line.folder);
}

}  // namespace mMain
