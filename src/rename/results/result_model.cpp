#include "rename/results/result_model.h"

#include "filelist/changed_part.h"
#include "filelist/list_roles.h"
#include "platform/qt/text_qt.h"

namespace {

QVariant Alignment(const ResultColumn& column) {
  const bool mark = column.cell == ResultCell::kMark;
  return QVariant(mark ? Qt::Alignment(Qt::AlignCenter) : Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace

ResultModel::ResultModel(ResultGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

int ResultModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(grid_.RowCount());
}

int ResultModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(grid_.Kind().columns.size());
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  if (grid_.IsGroupRow(row)) {
    const ResultGrid::Group& group = grid_.GroupOf(row);
    return GroupRowData(group.path, group.file_count, role);
  }
  return FileData(row, grid_.Kind().columns[static_cast<std::size_t>(index.column())], role);
}

QVariant ResultModel::FileData(std::size_t row, const ResultColumn& column, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      if (column.cell == ResultCell::kReason) return text::Shown(grid_.Reason(row));
      return text::Shown(grid_.Item(row, column.item));
    case kReasonRole:
      return text::Shown(grid_.Reason(row));
    case Qt::AccessibleDescriptionRole:
      return Describe(row);
    case Qt::TextAlignmentRole:
      return Alignment(column);
    case kMarkRole:
      if (column.cell == ResultCell::kMark) return static_cast<int>(grid_.Kind().mark);
      return {};
    case kMarkedNameRole:
      return MarkedNameOf(row, column.item);
    default:
      return {};
  }
}

QVariant ResultModel::MarkedNameOf(std::size_t row, int item) const {
  const ResultKind& kind = grid_.Kind();
  const std::string_view old_name = grid_.Item(row, kind.old_item);
  const std::string_view new_name = grid_.Item(row, kind.new_item);
  if (item == kind.old_item && kind.marks_old) {
    return QVariant::fromValue(MarkedName{MarkGone(old_name, new_name)});
  }
  if (item == kind.new_item) {
    return QVariant::fromValue(MarkedName{MarkNew(old_name, new_name), true});
  }
  return {};
}

QString ResultModel::Describe(std::size_t row) const {
  const ResultKind& kind = grid_.Kind();
  const std::string change =
      DescribeChange(grid_.Item(row, kind.old_item), grid_.Item(row, kind.new_item));
  return DescribeState(text::Shown(kind.description), text::Shown(grid_.Reason(row)),
                       change.empty() ? QStringLiteral("name unchanged") : text::Shown(change));
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const ResultColumn& column = grid_.Kind().columns[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return text::Shown(column.caption);
  if (role == Qt::TextAlignmentRole) return Alignment(column);
  return {};
}

Qt::ItemFlags ResultModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || index.row() >= rowCount()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void ResultModel::sort(int column, Qt::SortOrder order) {
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  const QModelIndexList old_indexes = persistentIndexList();
  std::vector<std::ptrdiff_t> records;  // of the rows of `old_indexes`, -1 for a group row
  for (const QModelIndex& old : old_indexes) {
    const auto row = static_cast<std::size_t>(old.row());
    records.push_back(grid_.IsGroupRow(row) ? -1
                                            : static_cast<std::ptrdiff_t>(grid_.RecordOf(row)));
  }
  grid_.SetSortOrder(column, order == Qt::AscendingOrder);
  if (grid_.RowCount() > 0) grid_.Populate();
  std::vector<int> row_of(grid_.RowCount(), -1);
  for (std::size_t row = 0; row < grid_.RowCount(); ++row) {
    if (!grid_.IsGroupRow(row)) row_of[grid_.RecordOf(row)] = static_cast<int>(row);
  }
  QModelIndexList new_indexes;
  for (qsizetype i = 0; i < old_indexes.size(); ++i) {
    // A sort works within groups, so headings keep their places.
    const std::ptrdiff_t record = records[static_cast<std::size_t>(i)];
    const int row = record < 0 ? old_indexes[i].row() : row_of[static_cast<std::size_t>(record)];
    new_indexes.append(index(row, old_indexes[i].column()));
  }
  changePersistentIndexList(old_indexes, new_indexes);
  emit layoutChanged({}, VerticalSortHint);
}

void ResultModel::Populate() {
  beginResetModel();
  grid_.Populate();
  endResetModel();
}

void ResultModel::Clear() {
  beginResetModel();
  grid_.Clear();
  endResetModel();
}
