#include "rename/results/result_windows.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "common/shell_actions.h"
#include "filelist/grouped_rows_model.h"
#include "filelist/list_view.h"
#include "filelist/row_menu.h"
#include "look/handlers.h"
#include "platform/qt/ordinary_pointer_qt.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kMargin = 12;
constexpr int kListGap = 10;
constexpr int kNarrower = 120;        ///< than the main window
constexpr int kMostOfOwner = 60;      ///< per cent of its height
constexpr int kMostLeastWidth = 900;  ///< with a large font, so that no column is out of sight

}  // namespace

ResultWindow::ResultWindow(const ResultKind& kind, const RunReports& reports,
                           const Services& services, QWidget* parent)
    : DialogFrame(kind.frm, text::ToQt(kind.title), Buttons::kOk, parent),
      kind_(kind),
      services_(services),
      list_(kind.source(reports)),
      model_(new GroupedRowsModel(list_, this)) {
  list_.SetGroupColumn(kResultPath);
  ErrTrace::top(Handler("Form_Load"), [&] { Form_Load(); });
  KeepPlacement(services.settings, [this] { return SizeOfRows(); });
}

void ResultWindow::Form_Load() {
  MakeList();
  LayOut();
  Connect();
}

void ResultWindow::MakeList() {
  ReportControl1 = new ListView(*model_, this);
  ReportControl1->setObjectName(QStringLiteral("ReportControl1"));
  ReportControl1->setAccessibleName(text::ToQt(kind_.title));
  ReportControl1->setSelectionMode(QAbstractItemView::SingleSelection);
  setMinimumWidth(std::min(2 * kMargin + ReportControl1->LeastWidth(), kMostLeastWidth));
}

void ResultWindow::LayOut() {
  lbFilesCount = new QLabel(this);
  lbFilesCount->setObjectName(QStringLiteral("lbFilesCount"));
  lbFilesCount->setTextFormat(Qt::PlainText);
  layout()->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout()->setSpacing(kListGap);
  Body()->addWidget(ReportControl1);
  Foot()->insertWidget(0, lbFilesCount, 1);
}

QSize ResultWindow::SizeOfRows() const {
  const QWidget* owner = parentWidget();
  if (owner == nullptr) return sizeHint();
  const QSize around = sizeHint() - ReportControl1->sizeHint();
  const int high = around.height() + ReportControl1->HeightOfRows();
  return {std::max(owner->window()->width() - kNarrower, minimumWidth()),
          std::min(high, owner->window()->height() * kMostOfOwner / 100)};
}

void ResultWindow::Connect() {
  for (auto signal : {&ListView::rowDblClick, &ListView::rowEntered}) {
    OnSignal(ReportControl1, signal, this, Handler("ReportControl1_RowDblClick(Row,Item)"),
             [this](int row, int) { OpenInExplorerList(row); });
  }
  OnSignal(ReportControl1, &ListView::rowRClick, this,
           Handler("ReportControl1_RowRClick(Row,Item)"), [this](int row, int item) {
             if (!model_->IsFileRow(row)) return;
             ReportControl1->setCurrentIndex(model_->index(row, item));
             PopUpRowMenu(this, {.on_file = true}, ReportControl1->MenuPlace(),
                          [this](int id) { CommandBars1_Execute(id); });
           });
}

void ResultWindow::ShowReport() {
  model_->Populate();
  lbFilesCount->setText(text::ToQt(kind_.count_words) + QString::number(list_.Source().count()));
  ReportControl1->scrollToTop();
  bnOK->setFocus();
  {
    const OrdinaryPointer pointer;
    exec();
  }
  // The next run deletes the records, and who reads the hidden list must not meet their rows then.
  model_->Clear();
}

void ResultWindow::CommandBars1_Execute(int Control) {
  ErrTrace::top(Handler("CommandBars1_Execute(Control)"), ErrTrace::args(Control), [&] {
    const std::string file = ReportControl1->SelectedFile();
    if (!file.empty()) ExecuteOnFile(Control, services_, file);
  });
}

void ResultWindow::OpenInExplorerList(int row) {
  if (!model_->IsFileRow(row)) return;
  mMain::OpenInExplorerList(services_.files, services_.prompts, services_.shell,
                            model_->FileOf(row));
}
