#include "filelist/file_list_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/language.h"
#include "filelist/empty_text.h"
#include "filelist/grouped_rows_model.h"
#include "filelist/list_view.h"
#include "look/card.h"
#include "look/fitted_button.h"
#include "look/handlers.h"
#include "look/link_button.h"
#include "look/look.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr FittedButton::Measures kWideButton{.air = 20};

}  // namespace

FileListPanel::FileListPanel(Grid& grid, QWidget* parent)
    : QWidget(parent), grid_(grid), model_(new GroupedRowsModel(grid.List(), this)) {
  MakeControls();
  MakeList();
  LayOut();
  ConnectControls();
  ConnectList();
  SetEmptyText(EmptyList::kNotListed);
}

ListOptions FileListPanel::ReadOptions() const {
  ListOptions options;
  for (std::size_t i = 0; i < column_boxes_.size(); ++i) {
    const ColumnBox& box = grid_.List().Columns()[i].box;
    if (box.option != nullptr) options.*box.option = column_boxes_[i]->isChecked();
  }
  options.cmbGroupBy = cmbGroupBy->currentIndex();
  return options;
}

void FileListPanel::Show(const ListOptions& options) {
  for (std::size_t i = 0; i < column_boxes_.size(); ++i) {
    const ColumnBox& box = grid_.List().Columns()[i].box;
    if (box.option != nullptr) column_boxes_[i]->setChecked(options.*box.option);
  }
  cmbGroupBy->setCurrentIndex(options.cmbGroupBy);
}

void FileListPanel::MakeControls() {
  bnWideFileList = new FittedButton({}, kWideButton, this);
  bnWideFileList->setObjectName(QStringLiteral("bnWideFileList"));
  bnWideFileList->setProperty("narrow", true);
  SetWideCaption();
  MakeColumnBoxes();
  cmbGroupBy = new QComboBox(this);
  cmbGroupBy->setObjectName(QStringLiteral("cmbGroupBy"));
  for (const int column : kGroupColumns) {
    const auto at = static_cast<std::size_t>(column);
    cmbGroupBy->addItem(column < 0 ? tr("None") : text::ToQt(grid_.List().Columns()[at].caption));
  }
  cmbGroupBy->setCurrentIndex(static_cast<int>(GroupBy::kPath));
  Explain(cmbGroupBy, tr("Show files of the same folder or type together"));
  Label21 = NewLabel(tr("Group files b&y"), cmbGroupBy, this);
  Label21->setObjectName(QStringLiteral("Label21"));
}

void FileListPanel::MakeColumnBoxes() {
  for (const ListColumn& column : grid_.List().Columns()) {
    column_boxes_.push_back(nullptr);
    if (column.box.name.empty()) continue;
    const QString caption = text::ToQt(column.caption);
    auto* box = column_boxes_.back() = new QCheckBox(caption, this);
    box->setObjectName(text::ToQt(column.box.name));
    box->setShortcut(KeysOf(column.box.keys));
    Explain(box, WithKeys(tr("Show the column “%1”").arg(caption), column.box.keys));
  }
}

void FileListPanel::MakeList() {
  ReportControl1 = new ListView(*model_, this);
  ReportControl1->setObjectName(QStringLiteral("ReportControl1"));
  ReportControl1->setAccessibleName(tr("Files"));
  lnkAddSeparator = new LinkButton(text::ToQt(mLanguageGobals::kAddSeparator), this);
  lnkAddSeparator->setObjectName(QStringLiteral("lnkAddSeparator"));
  lnkAddSeparator->hide();
}

void FileListPanel::LayOut() {
  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kControlGap);
  row->addWidget(bnWideFileList);
  auto* boxes = new QHBoxLayout;
  boxes->setSpacing(0);  // each has the room of its focus ring around it
  for (QCheckBox* box : column_boxes_) {
    if (box != nullptr) boxes->addWidget(box);
  }
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
  OnSignal(bnWideFileList, &QPushButton::clicked, this, "Form1.bnWideFileList_Click", [this] {
    wide_ = !wide_;
    SetWideCaption();
    emit wideToggled(wide_);
  });
  OnSignal(cmbGroupBy, &QComboBox::currentIndexChanged, this, "Form1.cmbGroupBy_Click",
           [this](int index) {
             ReportControl1->ChangeRows([&] { model_->Regroup(kGroupColumns[index]); });
             emit groupByChanged(index);
           });
  for (std::size_t column = 0; column < column_boxes_.size(); ++column) {
    if (column_boxes_[column] == nullptr) continue;
    connect(column_boxes_[column], &QCheckBox::toggled, this,
            [this, column] { chColumn_Click(column); });
  }
}

void FileListPanel::chColumn_Click(std::size_t column) {
  ErrTrace::top(HandlerOf(grid_.List().Columns()[column].box.name, "_Click"), [&] {
    ReportControl1->ShowColumn(static_cast<int>(column), column_boxes_[column]->isChecked());
  });
}

void FileListPanel::ShowColumns() {
  for (std::size_t column = 0; column < column_boxes_.size(); ++column) {
    if (column_boxes_[column] != nullptr) chColumn_Click(column);
  }
}

void FileListPanel::ConnectList() {
  OnSignal(lnkAddSeparator, &LinkButton::clicked, this, "Form1.lnkAddSeparator_Click",
           [this] { emit separatorAsked(); });
  connect(ReportControl1, &ListView::sortChanged, this, &FileListPanel::sortChanged);
  connect(model_, &GroupedRowsModel::rowChecked, this, [this](int Row) {
    constexpr int Item = kColumnCheck;
    ErrTrace::top("Form1.ReportControl1_ItemCheck(Row,Item)", ErrTrace::args(Row, Item),
                  [&] { emit rowChecked(Row); });
  });
  OnSignal(ReportControl1, &ListView::spacePressed, this, "Form1.ReportControl1_KeyDown",
           [this] { CheckSelected(); });
  OnSignal(ReportControl1, &ListView::rowDblClick, this,
           "Form1.ReportControl1_RowDblClick(Row,Item)", [this](int row, int) {
             if (model_->IsFileRow(row)) emit rowDblClick(ReportControl1->SelectedFile());
           });
  OnSignal(ReportControl1, &ListView::rowEntered, this,
           "Form1.ReportControl1_RowDblClick(Row,Item)", [this](int row, int) {
             if (model_->IsFileRow(row)) emit rowDblClick(model_->FileOf(row));
           });
  OnSignal(ReportControl1, &ListView::rowRClick, this, "Form1.ReportControl1_RowRClick(Row,Item)",
           [this](int row, int) { emit rowRClick(row, ReportControl1->MenuPlace()); });
}

void FileListPanel::SetWideCaption() {
  bnWideFileList->setText(wide_ ? QStringLiteral(">") : QStringLiteral("<"));
  bnWideFileList->setAccessibleName(wide_ ? tr("Narrow list") : tr("Wide list"));
  bnWideFileList->setShortcut(KeysOf(Keys::kWideList));  // a new caption takes the key away
  Explain(bnWideFileList, WithKeys(wide_ ? tr("Bring back the options beside the list")
                                         : tr("Give the list the whole window"),
                                   Keys::kWideList));
}

void FileListPanel::CheckSelected() {
  const QModelIndex current = ReportControl1->currentIndex();
  std::vector<int> rows = SelectedRows();
  if (rows.empty() && current.isValid()) rows = {current.row()};
  // As the current row goes, so go all; a group row has no box, then the first file decides.
  int leader = current.row();
  for (std::size_t i = 0; !model_->IsFileRow(leader) && i < rows.size(); ++i) leader = rows[i];
  if (model_->IsFileRow(leader)) model_->CheckRows(rows, !model_->IsChecked(leader));
}

void FileListPanel::ListRepopulated(EmptyList reason) {
  SetEmptyText(reason);
  model_->Reset();
}

void FileListPanel::ShowAnew() {
  ReportControl1->ChangeRows([this] { model_->ShowAnew(); });
}

void FileListPanel::RowsChanged() {
  model_->RowsChanged();
}

void FileListPanel::RepaintRows() {
  ReportControl1->RepaintChangedRows();
}

void FileListPanel::ShowNarrow() {
  if (wide_) bnWideFileList->click();
}

void FileListPanel::EnableElements(bool enable) {
  for (QCheckBox* box : column_boxes_) {
    if (box != nullptr) box->setEnabled(enable);
  }
  for (QWidget* control :
       std::initializer_list<QWidget*>{Label21, cmbGroupBy, ReportControl1, lnkAddSeparator}) {
    control->setEnabled(enable);
  }
}

std::vector<int> FileListPanel::SelectedRows() const {
  return ReportControl1->SelectedRows();
}

RowMenuPlace FileListPanel::MenuPlaceOf(int row) const {
  return {.has_boxes = true,
          .grouped = cmbGroupBy->currentIndex() != static_cast<int>(GroupBy::kNone),
          .on_file = model_->IsFileRow(row)};
}

void FileListPanel::SetEmptyText(EmptyList reason) {
  const EmptyListTexts texts = TextsOf(reason);
  ReportControl1->Empty().SetTexts(text::ToQt(texts.title), text::ToQt(texts.note));
  ReportControl1->Empty().SetLink(texts.link.empty() ? nullptr : lnkAddSeparator);
}
