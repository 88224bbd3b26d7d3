#include "filelist/list_view.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/file_row.h"
#include "filelist/row_painter.h"
#include "look/look.h"

namespace {

constexpr int kRowHeight = 24;
constexpr int kRowAir = 8;
constexpr int kHeadingHeight = 27;
constexpr int kHeadingAir = 11;
constexpr int kLeastMarkWidth = 40;
constexpr int kLeastColumn = 24;
constexpr int kEmptyPicture = 48;

QLabel* NewLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  return label;
}

}  // namespace

ListView::ListView(QWidget* parent) : QTableView(parent) {
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
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsMovable(false);
  horizontalHeader()->setMinimumSectionSize(kLeastColumn);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  MakeEmptyText();
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
    viewport()->update();  // the group rows reach over all columns
    if (laying_out_) return;
    for (SizedColumn& column : columns_) {
      if (column.column == section) column.dragged = true;
    }
  });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, viewport(),
          qOverload<>(&QWidget::update));
  SetHeights();
}

void ListView::MakeEmptyText() {
  empty_ = new QWidget(viewport());
  empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
  empty_picture_ = NewLabel(empty_, "lbEmptyPicture");
  empty_title_ = NewLabel(empty_, "lbEmptyTitle");
  empty_title_->setProperty("strong", true);
  empty_note_ = NewLabel(empty_, "lbEmptyNote");
  empty_note_->setProperty("muted", true);
  auto* layout = new QVBoxLayout(empty_);
  layout->addStretch(2);
  layout->addWidget(empty_picture_);
  layout->addWidget(empty_title_);
  layout->addWidget(empty_note_);
  layout->addStretch(3);
}

void ListView::setModel(QAbstractItemModel* new_model) {
  QTableView::setModel(new_model);
  connect(new_model, &QAbstractItemModel::modelReset, this, &ListView::ShowEmptyText);
  // The view itself repaints no more than the two cells.
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, viewport(),
          qOverload<>(&QWidget::update));
  ShowEmptyText();
}

void ListView::SetColumnWidths(const std::vector<ColumnWidth>& widths) {
  columns_.clear();
  for (const ColumnWidth& width : widths) {
    columns_.push_back({width});
    horizontalHeader()->setSectionResizeMode(width.column, width.rule == WidthRule::kFixed
                                                               ? QHeaderView::Fixed
                                                               : QHeaderView::Interactive);
  }
  LayOutColumns();
}

void ListView::ShowColumn(int column, bool show) {
  laying_out_ = true;  // the width that comes or goes is not the user's doing
  setColumnHidden(column, !show);
  LayOutColumns();
}

void ListView::SetEmptyText(const QString& title, const QString& note) {
  empty_title_->setText(title);
  empty_note_->setText(note);
  ShowEmptyText();
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

int ListView::MarkWidth() const {
  int widest = 0;
  for (const Mark mark : {Mark::kWaiting, Mark::kDone, Mark::kFailed}) {
    const auto words = QString::fromLatin1(MarkText(mark).data());
    widest = std::max(widest, fontMetrics().horizontalAdvance(words));
  }
  return std::max(kLeastMarkWidth, widest + 6);
}

void ListView::SetHeights() {
  const int row = std::max(kRowHeight, fontMetrics().height() + kRowAir);
  verticalHeader()->setMinimumSectionSize(row);
  verticalHeader()->setDefaultSectionSize(row);
  horizontalHeader()->setFixedHeight(
      std::max(kHeadingHeight, fontMetrics().height() + kHeadingAir));
  empty_picture_->setPixmap(
      Look::Current().Picture(Drawing::kFolder, Role::kEdge, kEmptyPicture, devicePixelRatioF()));
}

void ListView::LayOutColumns() {
  int room = viewport()->width();
  std::vector<const SizedColumn*> sharing;
  laying_out_ = true;
  for (const SizedColumn& column : columns_) {
    if (isColumnHidden(column.column)) continue;
    if (column.rule == WidthRule::kShared && !column.dragged) {
      sharing.push_back(&column);
      continue;
    }
    if (!column.dragged) setColumnWidth(column.column, column.width);
    room -= columnWidth(column.column);
  }
  for (std::size_t i = 0; i < sharing.size(); ++i) {
    const int width = std::max(sharing[i]->width, room / static_cast<int>(sharing.size() - i));
    setColumnWidth(sharing[i]->column, width);
    room -= width;
  }
  laying_out_ = false;
}

void ListView::ShowEmptyText() {
  const bool no_rows = model() == nullptr || model()->rowCount() == 0;
  const bool shown = no_rows && !empty_title_->text().isEmpty();
  empty_->setVisible(shown);
  // A table tells screen readers of its cells only. What others added to the description stays.
  QString words = accessibleDescription();
  if (words.startsWith(described_)) words.remove(0, described_.size());
  described_ =
      shown ? empty_title_->text() + QStringLiteral(". ") + empty_note_->text() : QString();
  setAccessibleDescription(described_ + words);
}

void ListView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  const auto type = event->type();
  if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::PaletteChange) {
    SetHeights();
    LayOutColumns();
  }
}

void ListView::keyPressEvent(QKeyEvent* event) {
  const bool plain =
      event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
  if (plain && event->key() == Qt::Key_Space) {
    emit spacePressed();
  } else if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    emit rowEntered();
  } else {
    QTableView::keyPressEvent(event);
  }
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
  empty_->setGeometry(viewport()->rect());
  LayOutColumns();
}
