#include "errors/error_reporter.h"

#include <QApplication>
#include <QEventLoop>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "common/language.h"
#include "platform/qt/ordinary_pointer_qt.h"

namespace {

bool IsOpen() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [](QWidget* window) {
    const bool tells =
        qobject_cast<Form11*>(window) != nullptr || qobject_cast<frmShowError*>(window) != nullptr;
    return tells && window->isVisible();
  });
}

/// A window that opens now would let a half painted one be painted again.
bool IsPainting() {
  const QWidgetList widgets = QApplication::allWidgets();
  return std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
    return widget->testAttribute(Qt::WA_WState_InPaintEvent);
  });
}

/// The lines of a report that tell procedure and number, and neither time nor values.
std::string KindOf(const std::string& report) {
  const std::size_t begin = std::min(report.find("  Method: "), report.size());
  return report.substr(begin, report.find("  Source: ", begin) - begin);
}

}  // namespace

ErrorReporter::ErrorReporter(const Services& services, Wait wait)
    : sources_{services, {}, std::move(wait)} {
  ErrTrace::SetFacts(&services.facts);
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
  QEventLoop loop;
  while (IsOpen()) loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void ErrorReporter::ShowErrorReport(const std::string& report, const std::string& slip) noexcept {
  const bool has_windows = QApplication::instance() != nullptr;
  const bool painting = has_windows && IsPainting();
  bool is_new = true;
  if (painting) {
    ErrTrace::top("ErrTrace.ShowErrorReport",
                  [&] { is_new = told_in_painting_.insert(KindOf(report)).second; });
  }
  if (!is_new) return;
  ErrTrace::SaveErrorReport(ErrTrace::kReportFileName, report, sources_);
  if (!has_windows || making_ == 2) {
    std::fprintf(stderr, "%s\n", report.c_str());
  } else if (painting) {
    QMetaObject::invokeMethod(
        &later_, [this, report, slip] { ShowWindow(report, slip); }, Qt::QueuedConnection);
  } else {
    ShowWindow(report, slip);
  }
}

void ErrorReporter::ShowWindow(const std::string& report, const std::string& slip) noexcept {
  Form11* window = nullptr;
  ++making_;
  ErrTrace::top("ErrTrace.ShowErrorReport", [&] {
    if (making_ != 1) {
      sources_.services.prompts.Tell(mLanguageGobals::kErrorOccurred, PromptIcon::kCritical);
    } else if (ErrTrace::InDevelopmentEnvironment()) {
      if (!developers_window_) developers_window_ = std::make_unique<frmShowError>();
      developers_window_->ShowError(report);
    } else {
      window = new Form11(sources_.services, Parent(), slip);
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
