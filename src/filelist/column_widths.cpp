#include "filelist/column_widths.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTableView>
#include <algorithm>

#include "filelist/list_roles.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kRounding = 1;  ///< a text may be a part of a pixel wider than its advance tells

int WantedWidth(const ColumnWidth& width, int heading, const QFontMetrics& metrics) {
  int widest = std::max(width.base, heading);
  for (const std::string& words : width.texts) {
    widest = std::max(widest, metrics.horizontalAdvance(text::ToQt(words)) + width.air);
  }
  return widest;
}

}  // namespace

ColumnWidths::ColumnWidths(QTableView& view, const RecordList& list)
    : QObject(&view), view_(view), list_(list) {
  QHeaderView* header = view.horizontalHeader();
  connect(header, &QHeaderView::sectionResized, this, [this](int section) {
    if (!laying_out_) columns_[static_cast<std::size_t>(section)].dragged = true;
  });
  // The view's own answer measures group rows too, and knows nothing of the other columns.
  header->disconnect(SIGNAL(sectionHandleDoubleClicked(int)), &view);
  connect(header, &QHeaderView::sectionHandleDoubleClicked, this, &ColumnWidths::Fit);
  SetUpColumns();
  LayOut();
}

void ColumnWidths::SetUpColumns() {
  const QScopedValueRollback rollback(laying_out_, true);
  columns_.resize(list_.Columns().size());
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    const ListColumn& column = list_.Columns()[static_cast<std::size_t>(i)];
    const bool fixed = column.width.rule == WidthRule::kFixed;
    view_.horizontalHeader()->setSectionResizeMode(
        i, fixed ? QHeaderView::Fixed : QHeaderView::Interactive);
    view_.setColumnHidden(i, column.cell == Cell::kHidden || !column.box.name.empty());
  }
}

/// Whichever heading stands there: no column changes with it. Check boxes are their own.
int ColumnWidths::HeadingWidth(int column) const {
  if (list_.Columns()[static_cast<std::size_t>(column)].cell == Cell::kCheck) {
    return view_.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &view_) + 2 * kCellInset;
  }
  return view_.fontMetrics().horizontalAdvance(text::ToQt(list_.LongestHeading(column))) +
         2 * kCellInset + kRounding;
}

std::vector<int> ColumnWidths::Shown() const {
  std::vector<int> shown;
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    if (!view_.isColumnHidden(i)) shown.push_back(i);
  }
  return shown;
}

bool ColumnWidths::IsShared(int column) const {
  return !columns_[static_cast<std::size_t>(column)].dragged &&
         Told(column).rule == WidthRule::kShared;
}

int ColumnWidths::Yielded(int column) const {
  const SizedColumn& sized = columns_[static_cast<std::size_t>(column)];
  if (sized.dragged) return view_.columnWidth(column);
  return Told(column).yields_to > 0 ? Narrowest(column) : sized.wanted;
}

int ColumnWidths::Narrowest(int column) const {
  const ColumnWidth& told = Told(column);
  return std::max(told.yields_to > 0 ? told.yields_to : told.base, HeadingWidth(column));
}

void ColumnWidths::LayOut() {
  const QScopedValueRollback rollback(laying_out_, true);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i].wanted = WantedWidth(list_.Columns()[i].width, HeadingWidth(static_cast<int>(i)),
                                     view_.fontMetrics());  // the font may be new
  }
  std::vector<int> sharing;
  int room = view_.viewport()->width();
  for (const int i : Shown()) room -= Yielded(i);
  // What is left when all have yielded goes to those that gave way, then to the names.
  for (const int i : Shown()) {
    const SizedColumn& sized = columns_[static_cast<std::size_t>(i)];
    if (IsShared(i)) sharing.push_back(i);
    if (IsShared(i) || sized.dragged) continue;
    const int more = std::clamp(room, 0, sized.wanted - Yielded(i));
    view_.setColumnWidth(i, Yielded(i) + more);
    room -= more;
  }
  for (const int i : sharing) room += Yielded(i);
  for (std::size_t i = 0; i < sharing.size(); ++i) {
    const int width = std::max(Yielded(sharing[i]), room / static_cast<int>(sharing.size() - i));
    view_.setColumnWidth(sharing[i], width);
    room -= width;
  }
}

void ColumnWidths::Show(int column, bool show) {
  {
    const QScopedValueRollback rollback(laying_out_, true);  // not the user's doing
    view_.setColumnHidden(column, !show);
  }
  LayOut();
}

int ColumnWidths::LeastWidth() const {
  int width = 2 * view_.frameWidth() + view_.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (const int i : Shown()) width += Yielded(i);
  return width;
}

int ColumnWidths::WidthSeen(int column) const {
  const QHeaderView& rows = *view_.verticalHeader();
  int widest = view_.horizontalHeader()->sectionSizeHint(column);
  const int first = rows.logicalIndexAt(0);
  const int last = rows.logicalIndexAt(view_.viewport()->height() - 1);
  if (first < 0) return widest;
  const int end = last < 0 ? view_.model()->rowCount() : last + 1;
  for (int row = first; row < end; ++row) {
    const QModelIndex index = view_.model()->index(row, column);
    if (index.data(kGroupTextRole).isValid()) continue;
    const int text = view_.fontMetrics().horizontalAdvance(index.data().toString());
    widest = std::max(widest, text + 2 * kCellInset + kRounding);
  }
  return widest;
}

int ColumnWidths::RoomBeside(int column, bool names_only) const {
  int room = view_.viewport()->width();
  for (const int i : Shown()) {
    const bool counts = !names_only || Told(i).rule != WidthRule::kFree;
    if (i != column && counts) room -= Yielded(i);
  }
  return room;
}

void ColumnWidths::Fit(int column) {
  const int narrowest = Narrowest(column);
  int room = RoomBeside(column, false);
  // It scrolls sideways all the same: then to where the names stand.
  if (room < narrowest) room = std::max(RoomBeside(column, true), narrowest);
  view_.setColumnWidth(column, std::min(WidthSeen(column), room));
  LayOut();
}
