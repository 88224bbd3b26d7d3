#include "errors/error_reporter.h"

#include <QApplication>
#include <QEventLoop>
#include <cstdio>
#include <utility>

#include "common/language.h"

namespace {

/// An ordinary pointer while a window waits for the user, whatever a long pass had set.
class OrdinaryPointer {
 public:
  OrdinaryPointer() {
    if (set_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;
  ~OrdinaryPointer() {
    if (set_) QApplication::restoreOverrideCursor();
  }

 private:
  bool set_ = QApplication::overrideCursor() != nullptr;
};

Form11* OpenWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* found = qobject_cast<Form11*>(window);
    if (found != nullptr && found->isVisible()) return found;
  }
  return nullptr;
}

}  // namespace

ErrorReporter::ErrorReporter(ReportSources sources, FileSystem& files, Prompts& prompts,
                             Shell& shell)
    : sources_(std::move(sources)), files_(files), prompts_(prompts), shell_(shell) {
  ErrTrace::SetFacts(&sources_.facts);
  ErrTrace::SetReporter(this);
}

ErrorReporter::~ErrorReporter() {
  ErrTrace::SetReporter(nullptr);
  ErrTrace::SetFacts(nullptr);
}

void ErrorReporter::GiveWindowsTo(QWidget& window) {
  for (QWidget* top : QApplication::topLevelWidgets()) {
    auto* form = qobject_cast<Form11*>(top);
    if (form == nullptr || !form->isVisible()) continue;
    form->setParent(&window, form->windowFlags());
    form->show();
    form->raise();
  }
}

void ErrorReporter::WaitForWindows() {
  while (Form11* window = OpenWindow()) {
    QEventLoop loop;
    QObject::connect(window, &QDialog::finished, &loop, &QEventLoop::quit);
    QObject::connect(window, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
  }
}

void ErrorReporter::ShowErrorReport(const std::string& report) noexcept {
  ErrTrace::SaveErrorReport(ErrTrace::kReportFileName, report, sources_);
  if (QApplication::instance() == nullptr || making_ == 2) {
    std::fprintf(stderr, "%s\n", report.c_str());
    return;
  }
  Form11* window = nullptr;
  ++making_;
  ErrTrace::top<"ErrTrace.ShowErrorReport">(ErrTrace::args(), [&] {
    if (making_ == 1) {
      window = new Form11({files_, prompts_, shell_, ErrTrace::ReportFolder(sources_.folders)},
                          Parent());
    } else {
      prompts_.Tell(mLanguageGobals::kErrorOccurred, PromptIcon::kCritical);
    }
  });
  --making_;
  if (window != nullptr) Open(*window);
}

QWidget* ErrorReporter::Parent() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : main_window_.data();
}

void ErrorReporter::Open(Form11& window) {
  window.setAttribute(Qt::WA_DeleteOnClose);
  if (main_window_ == nullptr) {
    window.show();
    return;
  }
  const OrdinaryPointer pointer;
  window.exec();
}
