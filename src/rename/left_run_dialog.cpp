#include "rename/left_run_dialog.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "common/language.h"
#include "common/shell_actions.h"
#include "filelist/empty_text.h"
#include "filelist/grouped_rows_model.h"
#include "filelist/list_view.h"
#include "look/card.h"
#include "look/elided_label.h"
#include "look/handlers.h"
#include "look/look.h"
#include "platform/clock.h"
#include "platform/qt/ordinary_pointer_qt.h"
#include "platform/qt/text_qt.h"
#include "rename/pump_with.h"

namespace {

constexpr std::size_t kListed = 1000;  ///< more are seldom looked at, and take their time
constexpr int kRowGap = 6;
constexpr int kProgressWidth = 220;
constexpr int kProgressHeight = 10;
constexpr int kMostLeastWidth = 900;  ///< with a large font, so that no column is out of sight
constexpr std::int64_t kSoonMs = 300;
constexpr std::int64_t kLongestSilenceMs = 50;

QLabel* NewText(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

Form12::Form12(const Services& services, QWidget* parent)
    : DialogFrame("Form12", tr("Earlier run"), Buttons::kOkAndCancel, parent),
      services_(services),
      list_(LeftFiles(files_)),
      model_(new GroupedRowsModel(list_, this)) {
  list_.SetGroupColumn(kLeftPath);
  MakeTexts();
  MakeList();
  MakeButtons();
  LayOut();
  ShowStage(Stage::kReading);
  KeepPlacement(services_.settings);
}

void Form12::MakeTexts() {
  lbHeading = NewText("lbHeading", this);
  lbHeading->setProperty("title", true);
  lbStory = NewText("lbStory", this);
  lbFolder = new ElidedLabel("lbFolder", Qt::ElideMiddle, this);
  lbCounts = NewText("lbCounts", this);
  lbFilesCount = new ElidedLabel("lbFilesCount", Qt::ElideRight, this);
  paneProgress = new QProgressBar(this);
  paneProgress->setObjectName(QStringLiteral("paneProgress"));
  paneProgress->setAccessibleName(tr("Progress"));
  paneProgress->setTextVisible(false);
  paneProgress->setFixedSize(kProgressWidth, kProgressHeight);
}

void Form12::MakeList() {
  ReportControl1 = new ListView(*model_, this);
  ReportControl1->setObjectName(QStringLiteral("ReportControl1"));
  ReportControl1->setAccessibleName(tr("Files that are not back"));
  ReportControl1->setSelectionMode(QAbstractItemView::SingleSelection);
  ReportControl1->setMinimumWidth(std::min(ReportControl1->LeastWidth(), kMostLeastWidth));
  for (auto signal : {&ListView::rowDblClick, &ListView::rowEntered}) {
    OnSignal(ReportControl1, signal, this, Handler("ReportControl1_RowDblClick(Row,Item)"),
             [this](int row, int) {
               if (!model_->IsFileRow(row)) return;
               mMain::OpenInExplorerList(services_.files, services_.prompts, services_.shell,
                                         model_->FileOf(row));
             });
  }
}

void Form12::MakeButtons() {
  bnPutBack = AddButton("bnPutBack", tr("&Put back"));
  Explain(bnPutBack, tr("What was replaced since, or has its former name taken, stays as it is"));
  OnSignal(bnPutBack, &QPushButton::clicked, this, Handler("bnPutBack_Click"),
           [this] { bnPutBack_Click(); });
  bnKeep = AddButton("bnKeep", tr("&Keep as they are"));
  Explain(bnKeep, tr("They can't be put back then"));
  OnSignal(bnKeep, &QPushButton::clicked, this, Handler("bnKeep_Click"),
           [this] { bnKeep_Click(); });
}

void Form12::LayOut() {
  auto* texts = new QVBoxLayout;
  texts->setSpacing(kRowGap);
  for (QWidget* part : std::initializer_list<QWidget*>{lbHeading, lbStory, lbFolder, lbCounts}) {
    texts->addWidget(part);
  }
  Body()->setSpacing(measure::kDialogMargin);
  Body()->addLayout(texts);
  Body()->addWidget(ReportControl1, 1);
  Foot()->insertWidget(0, paneProgress);
  Foot()->insertWidget(1, lbFilesCount, 1);
}

bool Form12::ShowLeftRun(const Reader& read) {
  const OrdinaryPointer pointer;
  settled_ = close_wanted_ = later_ = false;
  std::unique_ptr<LeftRun> run = Read(read);
  if (run == nullptr || later_) {
    hide();
    return !later_;
  }
  Ask(std::move(run));
  exec();
  run_.reset();
  return settled_;
}

void Form12::Ask(std::unique_ptr<LeftRun> run) {
  run_ = std::move(run);
  ShowTexts(TextsOf(run_->Told(), services_.clock, services_.locale));
  ShowStage(Stage::kAsking);
}

std::unique_ptr<LeftRun> Form12::Read(const Reader& read) {
  ShowStage(Stage::kReading);
  const std::int64_t began = services_.clock.Milliseconds();
  std::int64_t last = began;
  return read([&] {
    const std::int64_t now = services_.clock.Milliseconds();
    if (later_ || now - last < kLongestSilenceMs) return !later_;
    if (now - began >= kSoonMs) {
      setModal(true);
      show();
      services_.events.LetEventsRun();
    } else {
      // Until then the main window is painted, but nothing can be begun in it.
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    last = services_.clock.Milliseconds();
    // Nobody is there any more to be told.
    later_ = later_ || (parentWidget() != nullptr && !parentWidget()->isVisible());
    return !later_;
  });
}

void Form12::ShowStage(Stage stage) {
  stage_ = stage;
  const bool reading = stage == Stage::kReading, asking = stage == Stage::kAsking;
  const bool working = stage == Stage::kWorking, done = stage == Stage::kDone;
  if (reading) lbHeading->setText(tr("Looking at an earlier run…"));
  if (working) lbHeading->setText(tr("Putting back…"));
  for (QWidget* part : std::initializer_list<QWidget*>{lbStory, lbFolder, lbCounts}) {
    part->setVisible(!reading);
  }
  for (QWidget* part : {bnPutBack, bnKeep}) part->setVisible(asking);
  for (QWidget* part : std::initializer_list<QWidget*>{paneProgress, bnCancel}) {
    part->setVisible(working);
  }
  bnOK->setVisible(!working);
  bnOK->setText(done ? tr("&OK") : tr("Decide &later"));
  Explain(bnOK, done ? lbCounts->text() : tr("You are asked again at the next start"));
  ReportControl1->setEnabled(!working);
  ReportControl1->Empty().SetTexts(done ? tr("Nothing is left to put back") : QString(), {});
  (working ? bnCancel : bnOK)->setFocus();
  if (working) {
    ShowProgress();
  } else {
    ShowFiles();
  }
}

void Form12::ShowTexts(const LeftRunTexts& texts) {
  lbHeading->setText(text::Shown(texts.heading));
  if (!texts.story.empty()) lbStory->setText(text::Shown(texts.story));
  lbFolder->setText(tr("Folder: %1").arg(text::Shown(run_->Told().source_folder)));
  lbFolder->setToolTip(lbFolder->text());
  lbCounts->setText(text::Shown(texts.counts));
}

void Form12::ShowFiles() {
  files_.clear();
  if (run_ != nullptr) files_ = run_->Files(kListed);
  model_->Populate();
  ReportControl1->ShowColumn(kLeftFolder, HasFolders(files_));
  ReportControl1->ShowColumn(kLeftReason, HasReasons(files_));
  const std::size_t all = run_ == nullptr ? 0 : NotBack(run_->Told());
  const std::string count = CountLine(files_.size(), all, services_.locale);
  const bool some = files_.size() < all;
  lbFilesCount->setText(some ? tr("The first %1 files").arg(text::Shown(count)) : QString());
}

void Form12::ShowProgress() {
  const FileCounts& counts = state_.counts;
  paneProgress->setMaximum(static_cast<int>(std::max<std::int64_t>(counts.all, 1)));
  paneProgress->setValue(static_cast<int>(counts.passed));
  lbFilesCount->setText(text::Shown(CountLine(counts.passed, counts.all, services_.locale)));
}

void Form12::bnPutBack_Click() {
  const LeftRun::Facts before = run_->Told();
  const auto show_result = [&](bool done) {
    settled_ = NotBack(run_->Told()) == 0;
    ShowTexts(ResultTexts(before, run_->Told(), !done, services_.locale));
    ShowStage(settled_ ? Stage::kDone : Stage::kAsking);
    if (close_wanted_) reject();
  };
  ErrTrace::OnFailure(
      "Form12.OnFailure", [&] { show_result(false); },
      [&] {
        state_ = RunState();
        state_.counts.all = static_cast<std::int64_t>(NotBack(before));
        ShowStage(Stage::kWorking);
        PumpWith events(services_.events, [this] { ShowProgress(); });
        show_result(run_->PutBack(WithEvents(services_, events), state_));
      });
}

void Form12::bnKeep_Click() {
  using namespace mLanguageGobals;
  if (!services_.prompts.Ask(kKeepForGood, PromptIcon::kExclamation)) return;
  settled_ = run_->Keep();
  if (!settled_) services_.prompts.Tell(kWillBeToldAgain, PromptIcon::kExclamation);
  DialogFrame::reject();
}

void Form12::reject() {
  if (stage_ == Stage::kWorking) {
    state_.gCancelRequested = true;
    return;
  }
  later_ = true;
  DialogFrame::reject();
}

void Form12::closeEvent(QCloseEvent* event) {
  close_wanted_ = stage_ == Stage::kWorking;
  DialogFrame::closeEvent(event);
}
