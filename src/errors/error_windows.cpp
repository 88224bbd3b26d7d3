#include "errors/error_windows.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

#include "common/language.h"
#include "common/path_text.h"
#include "common/shell_actions.h"
#include "errors/report_file.h"
#include "errors/send_mail.h"
#include "look/form_font.h"
#include "look/handlers.h"
#include "look/link_button.h"
#include "look/look.h"
#include "platform/build_facts.h"
#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

namespace {

using namespace mLanguageGobals;

constexpr int kWidth = 560;
constexpr int kSigns = 80;       ///< that much with a large font
constexpr int kLinkIndent = 16;  // the link's own inset makes it 20
constexpr int kIconSize = 40;

QLabel* NewLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// A quoted mask reads in its own direction, as in its field, and stays in one line.
QString ShownSlip(std::string_view slip) {
  return text::Shown(slip)
      .replace(QStringLiteral("“"), QStringLiteral("“\u2068"))
      .replace(QStringLiteral("”"), QStringLiteral("\u2069”"))
      .replace(QStringLiteral("…"), QStringLiteral("\u2060…\u2060"));
}

QFrame* NewRule() {
  auto* rule = new QFrame;
  rule->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  rule->setProperty("rule", true);
  return rule;
}

QLayout* NewSeparator() {
  auto* row = new QHBoxLayout;
  row->setSpacing(10);
  auto* word = new QLabel(text::Shown(kOr));
  word->setProperty("muted", true);
  row->addWidget(NewRule(), 1);
  row->addWidget(word);
  row->addWidget(NewRule(), 1);
  return row;
}

std::string Subject() {
  return std::string(build_facts::kTitle) + " v" + std::to_string(build_facts::kMajor) + "." +
         std::to_string(build_facts::kMinor) + " Error report";
}

}  // namespace

Form11::Form11(const Services& services, QWidget* parent, std::string slip)
    : DialogFrame("Form11", text::Shown(kProgramError), Buttons::kOk, parent),
      services_(services),
      slip_(std::move(slip)),
      report_folder_(ErrTrace::ReportFolder(services.folders)) {
  ErrTrace::inner("Form11.Form_Load", [&] { LayOut(); });
}

void Form11::LayOut() {
  const int width = std::max(kWidth, kSigns * fontMetrics().averageCharWidth());
  Body()->addStrut(width - 2 * measure::kDialogMargin);
  layout()->setSpacing(10);
  Body()->setSpacing(10);
  AddHeading(*Body());
  AddWays(*Body());
  Body()->addStretch(1);
  bnOK->setFocus();
  resize(width, layout()->totalHeightForWidth(width));
}

void Form11::AddHeading(QVBoxLayout& column) {
  auto* picExclamation = new QLabel;
  picExclamation->setObjectName(QStringLiteral("picExclamation"));
  picExclamation->setAccessibleName(QStringLiteral("Warning"));
  picExclamation->setPixmap(
      Look::Current().Picture(Drawing::kWarning, Role::kWarn, kIconSize, devicePixelRatioF()));
  QLabel* first = NewLabel(slip_.empty() ? text::Shown(kErrorOccurred) : ShownSlip(slip_));
  QFont strong = first->font();
  strong.setWeight(QFont::DemiBold);
  first->setFont(strong);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(10);
  texts->addWidget(first);
  if (!slip_.empty()) texts->addWidget(NewLabel(text::Shown(kErrorOccurred)));
  texts->addWidget(NewLabel(text::Shown(kIfErrorOccursAgain)));
  auto* row = new QHBoxLayout;
  row->setSpacing(14);
  row->addWidget(picExclamation, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  column.addLayout(row);
}

void Form11::AddWays(QVBoxLayout& column) {
  const std::string& folder = report_folder_;
  const std::string mail = build_facts::kSupportAddress;
  const std::vector<Line> ways[] = {
      {{std::string(kGoToFolder)},
       {folder, "Label56", &Form11::ShowReportFile},
       {std::string(kLocateFile)},
       {std::string(kRightClickFile)},
       {kSendFile + mail}},
      {{std::string(kClickLink)},
       {mail, "Label5", &Form11::BeginMail},
       {std::string(kAttachFileSecond)},
       {folder, "Label57", &Form11::ShowReportFile},
       {std::string(kSendMail)}},
      {{std::string(kOpenClient)},
       {std::string(kCreateDocument)},
       {std::string(kAttachFileThird)},
       {folder, "Label58", &Form11::ShowReportFile},
       {kSendFile + mail}},
  };
  for (const std::vector<Line>& way : ways) {
    if (&way != ways) column.addLayout(NewSeparator());
    AddCard(column, way);
  }
}

void Form11::AddCard(QVBoxLayout& column, std::span<const Line> way) {
  auto* card = new QFrame;
  card->setFrameShape(QFrame::StyledPanel);
  card->setProperty("card", true);
  auto* lines = new QVBoxLayout(card);
  lines->setContentsMargins(12, 9, 12, 9);
  lines->setSpacing(2);
  QString before;
  for (const Line& line : way) {
    const QString shown = text::Shown(line.text);
    if (line.link == nullptr) {
      lines->addWidget(NewLabel(before = shown));
      continue;
    }
    auto* link = new LinkButton(shown);
    link->setObjectName(QLatin1String(line.link));
    link->setAccessibleDescription(before);
    OnSignal(link, &LinkButton::clicked, std::string("Form11.").append(line.link) + "_Click",
             [this, follow = line.follow] { (this->*follow)(); });
    auto* row = new QHBoxLayout;
    row->addSpacing(kLinkIndent);
    row->addWidget(link);
    row->addStretch(1);
    lines->addLayout(row);
  }
  column.addWidget(card);
}

void Form11::BeginMail() {
  const std::string subject = Subject();
  mMain::SendMail(services_.shell, {.Address = build_facts::kSupportAddress, .Subject = subject});
}

void Form11::ShowReportFile() {
  const std::string path = mScanCD::NormalizePath(report_folder_).append(ErrTrace::kReportFileName);
  mMain::OpenInExplorerList(services_.files, services_.prompts, services_.shell, path);
}

frmShowError::frmShowError(QWidget* parent)
    : QWidget(parent, Qt::Window), txtError(new QPlainTextEdit(this)) {
  setObjectName(QStringLiteral("frmShowError"));
  setWindowTitle(QStringLiteral("Error Report"));
  txtError->setObjectName(QStringLiteral("txtError"));
  txtError->setAccessibleName(windowTitle());
  txtError->setReadOnly(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(txtError);
  resize(720, 480);
  ApplyFormFont(*this);
}

void frmShowError::ShowError(const std::string& report) {
  ErrTrace::inner("frmShowError.ShowError(report)", ErrTrace::args(report), [&] {
    txtError->setPlainText(text::ShownLines(report));
    if (isVisible()) return;
    const bool blocked = QApplication::activeModalWidget() != nullptr;
    setWindowModality(blocked ? Qt::ApplicationModal : Qt::NonModal);
    show();
  });
}
