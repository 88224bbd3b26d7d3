#include "filelist/file_list_panel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include "filelist/file_list_model.h"
#include "filelist/list_view.h"
#include "look/look.h"
#include "look/option_controls.h"
#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

namespace {

constexpr std::tuple kOptions{
    OptionControl{&ListOptions::chColumnPath, &FileListPanel::chColumnPath},
    OptionControl{&ListOptions::chColumnSize, &FileListPanel::chColumnSize},
    OptionControl{&ListOptions::chColumnType, &FileListPanel::chColumnType},
    OptionControl{&ListOptions::chColumnDate, &FileListPanel::chColumnDate},
    OptionControl{&ListOptions::cmbGroupBy, &FileListPanel::cmbGroupBy},
};

/// The optional columns.
struct ColumnBox {
  QCheckBox* FileListPanel::*box;
  const char* name;
  const char* caption;
  int key;  ///< with Alt
  Column column;
};

constexpr ColumnBox kColumnBoxes[] = {
    {&FileListPanel::chColumnPath, "chColumnPath", "Path", Qt::Key_7, kColumnPath},
    {&FileListPanel::chColumnSize, "chColumnSize", "Size", Qt::Key_8, kColumnSize},
    {&FileListPanel::chColumnType, "chColumnType", "Type", Qt::Key_9, kColumnType},
    {&FileListPanel::chColumnDate, "chColumnDate", "Date", Qt::Key_0, kColumnDate},
};

constexpr int kCheckWidth = 28;
constexpr int kSizeWidth = 80;
constexpr int kTypeWidth = 100;
constexpr int kPathWidth = 300;
constexpr int kLeastNameWidth = 140;
constexpr int kWideButtonAir = 20;
constexpr int kDateAir = 16;

/// More selected rows than this are not carried through a sort: Qt keeps an index for each cell.
constexpr std::size_t kMostCarriedRows = 5000;

QString KeyTip(const QString& words, const QKeySequence& key) {
  return QStringLiteral("%1 (%2)").arg(words, key.toString(QKeySequence::NativeText));
}

/// Column handlers stand in the trace under their own names.
template <class Body>
void RunColumnClick(Column column, Body&& body) {
  switch (column) {
    case kColumnPath:
      ErrTrace::top("Form1.chColumnPath_Click", body);
      break;
    case kColumnSize:
      ErrTrace::top("Form1.chColumnSize_Click", body);
      break;
    case kColumnType:
      ErrTrace::top("Form1.chColumnType_Click", body);
      break;
    default:
      ErrTrace::top("Form1.chColumnDate_Click", body);
  }
}

}  // namespace

FileListPanel::FileListPanel(Grid& grid, QWidget* parent)
    : QWidget(parent), grid_(grid), model_(new FileListModel(grid, this)) {
  MakeControls();
  MakeList();
  LayOut();
  ConnectControls();
  ConnectList();
  SetEmptyText(EmptyList::kNotListed);
}

ListOptions FileListPanel::ReadOptions() const {
  return OptionsIn<ListOptions>(*this, kOptions);
}

void FileListPanel::Show(const ListOptions& options) {
  ShowOptions(options, kOptions, *this);
}

void FileListPanel::MakeControls() {
  bnWideFileList = new QPushButton(this);
  bnWideFileList->setObjectName(QStringLiteral("bnWideFileList"));
  bnWideFileList->setProperty("narrow", true);
  bnWideFileList->setMaximumWidth(fontMetrics().horizontalAdvance(u'>') + kWideButtonAir);
  SetWideCaption();
  const QString tip = KeyTip(QStringLiteral("Wide or narrow file list"), Qt::Key_F9);
  bnWideFileList->setToolTip(tip);
  bnWideFileList->setAccessibleDescription(tip);
  for (const ColumnBox& row : kColumnBoxes) {
    const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(row.key));
    const QString caption = QString::fromLatin1(row.caption);
    auto* box = this->*row.box = new QCheckBox(caption, this);
    box->setObjectName(QString::fromLatin1(row.name));
    box->setShortcut(key);
    box->setToolTip(KeyTip(QStringLiteral("Show the column “%1”").arg(caption), key));
  }
  cmbGroupBy = new QComboBox(this);
  cmbGroupBy->setObjectName(QStringLiteral("cmbGroupBy"));
  for (const char* caption : {"None", "Path", "Type"}) {
    cmbGroupBy->addItem(QString::fromLatin1(caption));
  }
  cmbGroupBy->setCurrentIndex(static_cast<int>(GroupBy::kPath));
  grid_.SetGroupsOrder(GroupBy::kPath);
  Label21 = new QLabel(QStringLiteral("Group files b&y"), this);
  Label21->setObjectName(QStringLiteral("Label21"));
  Label21->setBuddy(cmbGroupBy);
}

void FileListPanel::MakeList() {
  ReportControl1 = new ListView(this);
  ReportControl1->setObjectName(QStringLiteral("ReportControl1"));
  ReportControl1->setAccessibleName(QStringLiteral("Files"));
  ReportControl1->setModel(model_);
  ReportControl1->setContextMenuPolicy(Qt::CustomContextMenu);
  QHeaderView* header = ReportControl1->horizontalHeader();
  header->setSectionsClickable(true);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  header->setSortIndicatorShown(true);
  header->setSortIndicatorClearable(true);  // the third click gives scan order back
  SetWidths();
  for (const ColumnBox& row : kColumnBoxes) ReportControl1->ShowColumn(row.column, false);
}

void FileListPanel::SetWidths() {
  const int date_width =
      fontMetrics().horizontalAdvance(QStringLiteral("0000.00.00 00:00:00")) + kDateAir;
  ReportControl1->SetColumnWidths({
      {kColumnPath, WidthRule::kFree, kPathWidth},
      {kColumnSize, WidthRule::kFree, kSizeWidth},
      {kColumnType, WidthRule::kFree, kTypeWidth},
      {kColumnDate, WidthRule::kFree, date_width},
      {kColumnCheck, WidthRule::kFixed, kCheckWidth},
      {kColumnSourceName, WidthRule::kShared, kLeastNameWidth},
      {kColumnMark, WidthRule::kFixed, ReportControl1->MarkWidth()},
      {kColumnNewName, WidthRule::kShared, kLeastNameWidth},
  });
}

void FileListPanel::LayOut() {
  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kControlGap);
  row->addWidget(bnWideFileList);
  auto* boxes = new QHBoxLayout;
  boxes->setSpacing(0);  // each has the room of its focus ring around it
  for (const ColumnBox& box : kColumnBoxes) boxes->addWidget(this->*box.box);
  row->addLayout(boxes);
  row->addStretch();
  row->addWidget(Label21);
  row->addSpacing(measure::kLabelGap - measure::kControlGap);
  row->addWidget(cmbGroupBy);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(measure::kControlGap);
  column->addLayout(row);
  column->addWidget(ReportControl1, 1);
}

void FileListPanel::ConnectControls() {
  connect(bnWideFileList, &QPushButton::clicked, this, &FileListPanel::bnWideFileList_Click);
  connect(cmbGroupBy, &QComboBox::currentIndexChanged, this, &FileListPanel::cmbGroupBy_Click);
  for (const ColumnBox& row : kColumnBoxes) {
    connect(this->*row.box, &QCheckBox::toggled, this, [this, column = row.column](bool on) {
      RunColumnClick(column, [&] { ReportControl1->ShowColumn(column, on); });
    });
  }
}

void FileListPanel::ConnectList() {
  connect(ReportControl1->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          &FileListPanel::SortBy);
  connect(model_, &FileListModel::rowChecked, this, [this](int Row) {
    constexpr int Item = kColumnCheck;
    ErrTrace::top("Form1.ReportControl1_ItemCheck(Row,Item)", ErrTrace::args(Row, Item),
                  [&] { emit rowChecked(Row); });
  });
  connect(ReportControl1, &ListView::spacePressed, this, &FileListPanel::CheckSelected);
  connect(ReportControl1, &ListView::rowEntered, this,
          [this] { RowDblClick(ReportControl1->currentIndex()); });
  connect(ReportControl1, &ListView::doubleClicked, this, [this](const QModelIndex& index) {
    if (index.column() != kColumnCheck) RowDblClick(index);
  });
  connect(ReportControl1, &ListView::customContextMenuRequested, this, &FileListPanel::RowRClick);
}

void FileListPanel::cmbGroupBy_Click() {
  ErrTrace::top("Form1.cmbGroupBy_Click", [&] {
    const auto record = CurrentRecord();
    model_->Regroup(static_cast<GroupBy>(cmbGroupBy->currentIndex()));
    if (record) SetCurrentRecord(*record);
    emit groupByChanged(cmbGroupBy->currentIndex());
  });
}

void FileListPanel::bnWideFileList_Click() {
  ErrTrace::top("Form1.bnWideFileList_Click", [&] {
    wide_ = !wide_;
    SetWideCaption();
    emit wideToggled(wide_);
  });
}

void FileListPanel::SetWideCaption() {
  bnWideFileList->setText(wide_ ? QStringLiteral(">") : QStringLiteral("<"));
  bnWideFileList->setShortcut(Qt::Key_F9);  // a new caption takes the key away
}

void FileListPanel::SortBy(int column, Qt::SortOrder order) {
  ErrTrace::top("Form1.ReportControl1_SortOrderChanged", [&] {
    if (column == kColumnCheck || column == kColumnMark) {
      QHeaderView* header = ReportControl1->horizontalHeader();
      const QSignalBlocker quiet(header);
      header->setSortIndicator(grid_.SortColumn(),
                               grid_.SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
      return;
    }
    if (SelectedRows().size() > kMostCarriedRows) ReportControl1->clearSelection();
    QApplication::setOverrideCursor(Qt::WaitCursor);  // a million rows take a second
    const auto restore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    model_->sort(column, order);
    emit sortChanged();
  });
}

void FileListPanel::CheckSelected() {
  ErrTrace::top("Form1.ReportControl1_KeyDown", [&] {
    const QModelIndex current = ReportControl1->currentIndex();
    std::vector<int> rows = SelectedRows();
    if (rows.empty() && current.isValid()) rows = {current.row()};
    // As the current row goes, so go all; a group row has no box, then the first file decides.
    const auto checked = [&](int row) -> std::optional<bool> {
      if (grid_.IsGroupRow(static_cast<std::size_t>(row))) return std::nullopt;
      return grid_.AllRecords()[grid_.RecordOf(static_cast<std::size_t>(row))].checked;
    };
    std::optional<bool> state;
    if (current.isValid()) state = checked(current.row());
    for (std::size_t i = 0; !state && i < rows.size(); ++i) state = checked(rows[i]);
    if (state) model_->CheckRows(rows, !*state);
  });
}

void FileListPanel::RowDblClick(const QModelIndex& index) {
  const int Row = index.row();
  const int Item = index.column();
  ErrTrace::top("Form1.ReportControl1_RowDblClick(Row,Item)", ErrTrace::args(Row, Item), [&] {
    if (Row >= 0) emit rowDblClick(Row);
  });
}

void FileListPanel::RowRClick(const QPoint& place) {
  const QModelIndex index = ReportControl1->indexAt(place);
  const int Row = index.row();
  const int Item = index.column();
  ErrTrace::top("Form1.ReportControl1_RowRClick(Row,Item)", ErrTrace::args(Row, Item),
                [&] { emit rowRClick(Row, ReportControl1->viewport()->mapToGlobal(place)); });
}

std::optional<std::size_t> FileListPanel::CurrentRecord() const {
  const QModelIndex current = ReportControl1->currentIndex();
  if (!current.isValid()) return std::nullopt;
  const auto row = static_cast<std::size_t>(current.row());
  if (row >= grid_.RowCount() || grid_.IsGroupRow(row)) return std::nullopt;
  return grid_.RecordOf(row);
}

void FileListPanel::SetCurrentRecord(std::size_t record) {
  for (std::size_t row = 0; row < grid_.RowCount(); ++row) {
    if (grid_.IsGroupRow(row) || grid_.RecordOf(row) != record) continue;
    const QModelIndex index = model_->index(static_cast<int>(row), kColumnSourceName);
    ReportControl1->setCurrentIndex(index);
    return;
  }
}

void FileListPanel::ListRepopulated() {
  model_->Reset();
}

void FileListPanel::RowsChanged() {
  model_->RowsChanged();
}

void FileListPanel::EnableElements(bool enable) {
  for (QWidget* control :
       std::initializer_list<QWidget*>{Label21, cmbGroupBy, chColumnDate, chColumnType,
                                       chColumnSize, chColumnPath, ReportControl1}) {
    control->setEnabled(enable);
  }
}

std::vector<int> FileListPanel::SelectedRows() const {
  return ReportControl1->SelectedRows();
}

void FileListPanel::SetEmptyText(EmptyList reason) {
  const EmptyListTexts texts = TextsOf(reason);
  ReportControl1->SetEmptyText(text::ToQt(texts.title), text::ToQt(texts.note));
}
