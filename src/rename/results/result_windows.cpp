#include "rename/results/result_windows.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <cerrno>

#include "common/problem_text.h"
#include "common/shell_actions.h"
#include "filelist/list_view.h"
#include "filelist/row_painter.h"
#include "look/look.h"
#include "platform/qt/ordinary_pointer_qt.h"
#include "platform/qt/text_qt.h"
#include "rename/results/result_model.h"
#include "settings/window_placement_qt.h"
#include "trace/err_trace.h"

namespace {

constexpr int kMargin = 12;
constexpr int kListGap = 10;
constexpr int kButtonWidth = 88;
constexpr int kLeastNameWidth = 140;
constexpr int kMostLeastWidth = 900;  ///< with a large font, so that no column is out of sight
constexpr int kRounding = 2;          ///< a width is told in whole pixels

struct PopupCommand {
  int ID;
  const char* caption;
  bool begin_group;
};

constexpr int kOpenInExplorer = 106;
constexpr int kExecute = 107;
constexpr int kProperties = 108;
constexpr PopupCommand kPopup[] = {
    {kOpenInExplorer, "Open in Explorer", false},
    {kExecute, "Execute", false},
    {kProperties, "Properties", true},
};

}  // namespace

ResultWindow::ResultWindow(const ResultKind& kind, const RunReports& reports,
                           const ResultServices& services, QWidget* parent)
    : QDialog(parent),
      kind_(kind),
      reports_(reports),
      services_(services),
      grid_(kind, reports),
      model_(new ResultModel(grid_, this)) {
  setObjectName(text::ToQt(kind.frm));
  setWindowTitle(text::ToQt(kind.title));
  ErrTrace::top(Handler("Form_Load"), [&] { Form_Load(); });
  new WindowPlacement(services.settings, *this, std::string(kind.frm));
}

std::string ResultWindow::Handler(std::string_view procedure) const {
  return std::string(kind_.frm).append(".").append(procedure);
}

void ResultWindow::Form_Load() {
  MakeList();
  LayOut();
  Connect();
}

/// Room for most of the reasons.
int ResultWindow::ReasonWidth() const {
  int widest = 0;
  for (const int usual : {EACCES, ENOENT, ENAMETOOLONG}) {
    const QString words = text::ToQt(mCommon::ProblemText(usual));
    widest = std::max(widest, ReportControl1->fontMetrics().horizontalAdvance(words));
  }
  return widest + 2 * kCellInset + kRounding;
}

void ResultWindow::MakeList() {
  ReportControl1 = new ListView(this);
  ReportControl1->setObjectName(QStringLiteral("ReportControl1"));
  ReportControl1->setAccessibleName(text::ToQt(kind_.title));
  ReportControl1->setModel(model_);
  ReportControl1->setSelectionMode(QAbstractItemView::SingleSelection);
  ReportControl1->setContextMenuPolicy(Qt::CustomContextMenu);
  QHeaderView* header = ReportControl1->horizontalHeader();
  header->setSectionsClickable(true);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  header->setSortIndicatorShown(true);
  header->setSortIndicatorClearable(true);  // the third click gives the order of the run back
  std::vector<ColumnWidth> widths;
  for (int column = 0; column < model_->columnCount(); ++column) {
    const ResultCell cell = kind_.columns[static_cast<std::size_t>(column)].cell;
    if (cell == ResultCell::kName) widths.push_back({column, WidthRule::kShared, kLeastNameWidth});
    if (cell == ResultCell::kMark) {
      widths.push_back({column, WidthRule::kFixed, ReportControl1->MarkWidth()});
    }
    if (cell == ResultCell::kReason) widths.push_back({column, WidthRule::kFree, ReasonWidth()});
    ReportControl1->setColumnHidden(column, cell == ResultCell::kHidden);
  }
  ReportControl1->SetColumnWidths(widths);
  int least = 2 * kMargin + 2 * ReportControl1->frameWidth() +
              style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (const ColumnWidth& width : widths) least += width.width;
  setMinimumWidth(std::min(least, kMostLeastWidth));
}

void ResultWindow::LayOut() {
  lbFilesCount = new QLabel(this);
  lbFilesCount->setObjectName(QStringLiteral("lbFilesCount"));
  lbFilesCount->setTextFormat(Qt::PlainText);
  bnOK = new QPushButton(tr("&OK"), this);
  bnOK->setObjectName(QStringLiteral("bnOK"));
  bnOK->setMinimumWidth(kButtonWidth);
  bnOK->setDefault(true);

  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kBlockGap);
  row->addWidget(lbFilesCount, 1);
  row->addWidget(bnOK);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kListGap);
  column->addWidget(ReportControl1, 1);
  column->addLayout(row);
}

void ResultWindow::Connect() {
  connect(bnOK, &QPushButton::clicked, this,
          [this] { ErrTrace::top(Handler("bnOK_Click"), [&] { accept(); }); });
  connect(ReportControl1->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          &ResultWindow::SortBy);
  connect(ReportControl1, &ListView::doubleClicked, this, &ResultWindow::RowDblClick);
  connect(ReportControl1, &ListView::rowEntered, this,
          [this] { RowDblClick(ReportControl1->currentIndex()); });
  connect(ReportControl1, &ListView::customContextMenuRequested, this, &ResultWindow::RowRClick);
  // Qt itself knows the Menu key only.
  auto* menu_key = new QShortcut(Qt::SHIFT | Qt::Key_F10, ReportControl1);
  menu_key->setContext(Qt::WidgetShortcut);
  connect(menu_key, &QShortcut::activated, this, [this] {
    RowRClick(ReportControl1->visualRect(ReportControl1->currentIndex()).center());
  });
}

void ResultWindow::ShowReport() {
  model_->Populate();
  lbFilesCount->setText(text::ToQt(kind_.count_words) + QString::number(kind_.count(reports_)));
  ReportControl1->scrollToTop();
  bnOK->setFocus();
  {
    const OrdinaryPointer pointer;
    exec();
  }
  // The next run deletes the records, and who reads the hidden list must not meet their rows then.
  model_->Clear();
}

void ResultWindow::SortBy(int column, Qt::SortOrder order) {
  ErrTrace::top(Handler("ReportControl1_SortOrderChanged"), [&] {
    const bool mark =
        column >= 0 && kind_.columns[static_cast<std::size_t>(column)].cell != ResultCell::kName;
    if (!mark) return model_->sort(column, order);
    QHeaderView* header = ReportControl1->horizontalHeader();
    const QSignalBlocker quiet(header);
    header->setSortIndicator(grid_.SortColumn(),
                             grid_.SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
  });
}

bool ResultWindow::IsFileRow(int row) const {
  return row >= 0 && row < model_->rowCount() && !grid_.IsGroupRow(static_cast<std::size_t>(row));
}

void ResultWindow::RowDblClick(const QModelIndex& index) {
  const int Row = index.row();
  const int Item = index.column();
  ErrTrace::top(Handler("ReportControl1_RowDblClick(Row,Item)"), ErrTrace::args(Row, Item),
                [&] { OpenInExplorerList(Row); });
}

void ResultWindow::RowRClick(const QPoint& place) {
  const QModelIndex index = ReportControl1->indexAt(place);
  const int Row = index.row();
  const int Item = index.column();
  ErrTrace::top(Handler("ReportControl1_RowRClick(Row,Item)"), ErrTrace::args(Row, Item), [&] {
    if (!IsFileRow(Row)) return;
    ReportControl1->setCurrentIndex(index);
    ShowPopup(ReportControl1->viewport()->mapToGlobal(place));
  });
}

/// Returns at once; the menu ends itself.
void ResultWindow::ShowPopup(const QPoint& place) {
  auto* popup = new QMenu(this);
  popup->setObjectName(QStringLiteral("Popup"));
  popup->setAttribute(Qt::WA_DeleteOnClose);
  for (const PopupCommand& command : kPopup) {
    AddButton(*popup, command.ID, QString::fromLatin1(command.caption), command.begin_group);
  }
  popup->popup(place);
}

QAction* ResultWindow::AddButton(QMenu& Controls, int ID, const QString& Caption, bool BeginGroup) {
  if (BeginGroup) Controls.addSeparator();
  return Controls.addAction(Caption, this, [this, ID] { CommandBars1_Execute(ID); });
}

void ResultWindow::CommandBars1_Execute(int Control) {
  ErrTrace::top(Handler("CommandBars1_Execute(Control)"), ErrTrace::args(Control), [&] {
    const std::vector<int> rows = ReportControl1->SelectedRows();
    if (rows.empty()) return;
    if (Control == kOpenInExplorer) OpenInExplorerList(rows.front());
  });
}

void ResultWindow::OpenInExplorerList(int row) {
  if (!IsFileRow(row)) return;
  mMain::OpenInExplorerList(services_.files, services_.prompts, services_.shell,
                            grid_.File(static_cast<std::size_t>(row)));
}
