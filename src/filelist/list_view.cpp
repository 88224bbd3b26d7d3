#include "filelist/list_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>

#include "filelist/column_widths.h"
#include "filelist/empty_text.h"
#include "filelist/grouped_rows_model.h"
#include "filelist/kept_rows.h"
#include "filelist/row_painter.h"
#include "look/handlers.h"
#include "look/look.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kRowHeight = 24;
constexpr int kRowAir = 8;
constexpr int kHeadingHeight = 27;
constexpr int kHeadingAir = 11;
constexpr int kLeastColumn = 24;

}  // namespace

ListView::ListView(GroupedRowsModel& model, QWidget* parent) : QTableView(parent), model_(model) {
  setItemDelegate(new RowPainter(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerItem);
  setModel(&model);
  running_.start();
  SetUpHeader();
  empty_ = new EmptyText(*this);
  ConnectRows();
  SetHeights();
  columns_ = new ColumnWidths(*this, model.List());
}

void ListView::SetUpHeader() {
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  QHeaderView* header = horizontalHeader();
  header->setHighlightSections(false);
  header->setSectionsMovable(false);
  header->setMinimumSectionSize(kLeastColumn);
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header->setSectionsClickable(true);
  header->setSortIndicator(-1, Qt::AscendingOrder);
  header->setSortIndicatorShown(true);
  header->setSortIndicatorClearable(true);
  OnSignal(header, &QHeaderView::sortIndicatorChanged, this, "ListView.Sort",
           [this](int column, Qt::SortOrder order) { Sort(column, order); });
  // With that of the rows, each painting of the headings would look whether each row is selected.
  header->setSelectionModel(new QItemSelectionModel(&model_, header));
  // The group rows reach over all columns.
  connect(header, &QHeaderView::sectionResized, viewport(), qOverload<>(&QWidget::update));
}

void ListView::ConnectRows() {
  const auto look_anew = [this] { looks_.clear(); };
  connect(&model_, &QAbstractItemModel::modelReset, this, look_anew);
  connect(&model_, &QAbstractItemModel::dataChanged, this, look_anew);
  // The view itself repaints no more than the two cells.
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, viewport(),
          qOverload<>(&QWidget::update));
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, viewport(),
          qOverload<>(&QWidget::update));
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    if (!(index.flags() & Qt::ItemIsUserCheckable)) emit rowDblClick(index.row(), index.column());
  });
  // Qt itself knows the Menu key only.
  auto* menu_key = NewShortcut(Keys::kRowMenu, this);
  menu_key->setContext(Qt::WidgetShortcut);
  connect(menu_key, &QShortcut::activated, this, &ListView::AskForMenuAtCurrent);
}

int ListView::LeastWidth() const {
  return columns_->LeastWidth();
}

int ListView::HeightOfRows() const {
  return 2 * frameWidth() + horizontalHeader()->height() + verticalHeader()->length();
}

void ListView::Sort(int column, Qt::SortOrder order) {
  const RecordList& list = model_.List();
  if (column < 0 || list.CanSort(column)) {
    ChangeRows([&] { model_.sort(column, order); });
    emit sortChanged();
    return;
  }
  const QSignalBlocker quiet(horizontalHeader());
  horizontalHeader()->setSortIndicator(
      list.SortColumn(), list.SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ListView::ChangeRows(const std::function<void()>& change) {
  QApplication::setOverrideCursor(Qt::WaitCursor);  // a million rows take a second
  const auto restore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
  const bool current_seen = viewport()->rect().intersects(visualRect(currentIndex()));
  const int scrolled = verticalScrollBar()->value();
  const KeptRows kept(model_.List().Rows(), *selectionModel(), SelectedRows());
  change();
  kept.Restore(model_.List().Rows(), *selectionModel());
  executeDelayedItemsLayout();  // the scroll bar takes no place that it doesn't have yet
  verticalScrollBar()->setValue(scrolled);
  if (current_seen) scrollTo(currentIndex());
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse) {
    AskForMenu(indexAt(event->pos()), event->pos());
  } else {
    AskForMenuAtCurrent();
  }
}

void ListView::AskForMenuAtCurrent() {
  const QModelIndex current = currentIndex();
  if (current.isValid()) scrollTo(current);
  const QRect seen = visualRect(current) & viewport()->rect();
  AskForMenu(current, (seen.isEmpty() ? viewport()->rect() : seen).center());
}

void ListView::AskForMenu(const QModelIndex& index, const QPoint& place) {
  menu_place_ = viewport()->mapToGlobal(place);
  if (index.isValid() && !selectionModel()->isSelected(index)) {
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  emit rowRClick(index.row(), index.column());
}

void ListView::ShowColumn(int column, bool show) {
  columns_->Show(column, show);
}

void ListView::RepaintChangedRows() {
  std::vector<std::size_t> looks;
  const int first = rowAt(0);
  const int bottom = viewport()->height();
  for (int row = first; row >= 0 && row < model_.rowCount(); ++row) {
    const int top = rowViewportPosition(row);
    if (top >= bottom) break;
    const std::size_t at = looks.size();
    looks.push_back(model_.LookOf(row));
    if (at < looks_.size() && looks_[at] == looks[at]) continue;
    viewport()->update(0, top, viewport()->width(), rowHeight(row));
  }
  looks_ = std::move(looks);
}

std::vector<int> ListView::SelectedRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

std::string ListView::SelectedFile() const {
  const std::vector<int> rows = SelectedRows();
  return !rows.empty() && model_.IsFileRow(rows.front()) ? model_.FileOf(rows.front()) : "";
}

int ListView::FirstSelectedFileRow() const {
  int first = -1;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    int row = range.top();
    while (row <= range.bottom() && !model_.IsFileRow(row)) ++row;
    if (row <= range.bottom() && (first < 0 || row < first)) first = row;
  }
  return first;
}

void ListView::SetHeights() {
  const int row = std::max(kRowHeight, fontMetrics().height() + kRowAir);
  verticalHeader()->setMinimumSectionSize(row);
  verticalHeader()->setDefaultSectionSize(row);
  horizontalHeader()->setFixedHeight(
      std::max(kHeadingHeight, fontMetrics().height() + kHeadingAir));
}

void ListView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  const auto type = event->type();
  if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::PaletteChange) {
    SetHeights();
    empty_->MakePicture();
    columns_->LayOut();
  }
}

void ListView::keyboardSearch(const QString& letters) {
  if (letters.isEmpty() || !letters.at(0).isPrint()) return;
  const QModelIndex current = currentIndex();
  const auto row =
      find_.Type(text::FromQt(letters), running_.elapsed(), model_.List(), current.row());
  if (row) setCurrentIndex(model_.index(static_cast<int>(*row), std::max(current.column(), 0)));
}

void ListView::keyPressEvent(QKeyEvent* event) {
  const bool plain =
      event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
  if (plain && event->key() == Qt::Key_Space) {
    // Names have blanks: amid the typing of one, a blank mustn't tick anything.
    if (find_.GoesOn(running_.elapsed())) return keyboardSearch(event->text());
    emit spacePressed();
  } else if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    EnterCurrent();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void ListView::EnterCurrent() {
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return;
  // Not selectRow, which finds no row where columns stand from right to left.
  if (!selectionModel()->hasSelection()) {
    selectionModel()->select(current, QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  emit rowEntered(current.row(), current.column());
}

void ListView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (!hasFocus() || empty_->isHidden()) return;
  QPainter painter(viewport());
  painter.setPen(QPen(Look::Current().Colour(Role::kFocus), 2));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

void ListView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  empty_->Place();
  columns_->LayOut();
}
