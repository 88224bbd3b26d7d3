#include "filelist/file_list_model.h"

#include "common/problem_text.h"
#include "filelist/changed_part.h"
#include "filelist/list_roles.h"
#include "platform/qt/text_qt.h"

namespace {

struct ColumnFacts {
  const char* caption;
  Qt::Alignment alignment;
};

constexpr ColumnFacts kColumns[kColumnCount] = {
    {"Path", Qt::AlignLeft | Qt::AlignVCenter},
    {"Size", Qt::AlignRight | Qt::AlignVCenter},
    {"Type", Qt::AlignLeft | Qt::AlignVCenter},
    {"Date", Qt::AlignLeft | Qt::AlignVCenter},
    {"", Qt::AlignLeft | Qt::AlignVCenter},
    {"Source file name", Qt::AlignLeft | Qt::AlignVCenter},
    {">>", Qt::AlignCenter},
    {"New file name", Qt::AlignLeft | Qt::AlignVCenter},
};

/// Why the row failed in the run, or could not be undone; empty when it didn't.
QString ReasonOf(const FileRow& row) {
  return text::Shown(mCommon::ProblemText(row.problem));
}

/// "waiting, IMG_ removed", "failed: The name is too long. IMG_ removed": what else only colours,
/// marks and tooltips tell.
QString DescribeRow(const FileRow& row) {
  static const QString kStates[] = {QStringLiteral("waiting"), QStringLiteral("done"),
                                    QStringLiteral("failed"), QStringLiteral("waiting")};
  const bool not_undone = row.mark != Mark::kFailed && row.problem != 0;
  const QString state =
      not_undone ? QStringLiteral("not undone") : kStates[static_cast<int>(row.mark)];
  QStringList more;
  if (!row.checked) more += QStringLiteral("not checked");
  if (!row.newFileName.empty()) {
    const QString change = text::Shown(DescribeChange(row.sourceFileName, row.newFileName));
    more += change.isEmpty() ? QStringLiteral("name unchanged") : change;
  }
  return DescribeState(state, ReasonOf(row), more.join(QStringLiteral(", ")));
}

}  // namespace

FileListModel::FileListModel(Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(grid_.RowCount());
}

int FileListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

const FileRow& FileListModel::RowAt(int row) const {
  return grid_.AllRecords()[grid_.RecordOf(static_cast<std::size_t>(row))];
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  if (grid_.IsGroupRow(row)) {
    const Grid::Group& group = grid_.GroupOf(row);
    return GroupRowData(group.text, group.file_count, role);
  }
  return FileData(RowAt(index.row()), index.column(), role);
}

QVariant FileListModel::FileData(const FileRow& row, int column, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return DisplayText(row, column);
    case Qt::AccessibleTextRole:
      return column == kColumnCheck ? text::Shown(row.sourceFileName) : DisplayText(row, column);
    case Qt::AccessibleDescriptionRole:
      return DescribeRow(row);
    case Qt::CheckStateRole:
      if (column == kColumnCheck) return row.checked ? Qt::Checked : Qt::Unchecked;
      return {};
    case Qt::TextAlignmentRole:
      return QVariant(kColumns[column].alignment);
    case kMarkRole:
      if (column == kColumnMark) return static_cast<int>(row.mark);
      return {};
    case kReasonRole:
      return column >= kColumnSourceName ? QVariant(ReasonOf(row)) : QVariant();
    case kMarkedNameRole:
      return MarkedNameOf(row, column);
    default:
      return {};
  }
}

QString FileListModel::DisplayText(const FileRow& row, int column) const {
  const Records& records = grid_.AllRecords();
  switch (column) {
    case kColumnPath:
      return text::Shown(records.Path(row));
    case kColumnSize:
      return QString::number(row.size, 'f', 0);
    case kColumnType:
      return text::Shown(records.Type(row));
    case kColumnDate:
      return text::Shown(row.date.Text());
    case kColumnSourceName:
      return text::Shown(row.sourceFileName);
    case kColumnMark:
      return text::Shown(MarkText(row.mark));
    case kColumnNewName:
      return text::Shown(row.newFileName);
    default:
      return {};
  }
}

QVariant FileListModel::MarkedNameOf(const FileRow& row, int column) const {
  if (column != kColumnSourceName && column != kColumnNewName) return {};
  MarkedName name;
  name.is_new = column == kColumnNewName;
  name.muted = !row.checked && !name.is_new;
  if (!row.checked || row.newFileName.empty()) {
    name.pieces = {{DisplayText(row, column), false}};
  } else if (name.is_new) {
    name.pieces = MarkNew(row.sourceFileName, row.newFileName);
  } else {
    name.pieces = MarkGone(row.sourceFileName, row.newFileName);
  }
  return QVariant::fromValue(name);
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount) return {};
  if (role == Qt::DisplayRole) return QString::fromLatin1(kColumns[section].caption);
  if (role == Qt::TextAlignmentRole) {
    // The arrow of the sort stands at the right end, where a number's heading would be.
    const bool arrow = section == kColumnSize && section == grid_.SortColumn();
    return QVariant(arrow ? kColumns[kColumnPath].alignment : kColumns[section].alignment);
  }
  return {};
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || index.row() >= rowCount()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  const bool group = grid_.IsGroupRow(static_cast<std::size_t>(index.row()));
  if (!group && index.column() == kColumnCheck) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool FileListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable)) return false;
  CheckRows({index.row()}, value.toInt() == Qt::Checked);
  return true;
}

void FileListModel::CheckRows(const std::vector<int>& rows, bool checked) {
  int first = rowCount();
  int last = -1;
  for (const int row : rows) {
    const auto at = static_cast<std::size_t>(row);
    if (grid_.IsGroupRow(at)) continue;
    grid_.AllRecords()[grid_.RecordOf(at)].checked = checked;
    first = std::min(first, row);
    last = std::max(last, row);
  }
  if (last < 0) return;
  emit dataChanged(index(first, 0), index(last, kColumnCount - 1));
  emit rowChecked(first);
}

void FileListModel::sort(int column, Qt::SortOrder order) {
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  const QModelIndexList old_indexes = persistentIndexList();
  std::vector<std::ptrdiff_t> records;  // of the rows of `old_indexes`, -1 for a group row
  records.reserve(static_cast<std::size_t>(old_indexes.size()));
  for (const QModelIndex& old : old_indexes) {
    const auto row = static_cast<std::size_t>(old.row());
    records.push_back(grid_.IsGroupRow(row) ? -1
                                            : static_cast<std::ptrdiff_t>(grid_.RecordOf(row)));
  }
  grid_.SetSortOrder(column, order == Qt::AscendingOrder);
  if (grid_.RowCount() > 0) grid_.Populate();  // a cancelled scan's records stay unshown
  if (!old_indexes.isEmpty()) {
    std::vector<int> row_of(grid_.AllRecords().Count(), -1);
    for (std::size_t row = 0; row < grid_.RowCount(); ++row) {
      if (!grid_.IsGroupRow(row)) row_of[grid_.RecordOf(row)] = static_cast<int>(row);
    }
    QModelIndexList new_indexes;
    new_indexes.reserve(old_indexes.size());
    for (qsizetype i = 0; i < old_indexes.size(); ++i) {
      // A sort works within groups, so headings keep their places.
      const std::ptrdiff_t record = records[static_cast<std::size_t>(i)];
      const int row = record < 0 ? old_indexes[i].row() : row_of[static_cast<std::size_t>(record)];
      new_indexes.append(index(row, old_indexes[i].column()));
    }
    changePersistentIndexList(old_indexes, new_indexes);
  }
  emit layoutChanged({}, VerticalSortHint);
}

void FileListModel::Regroup(GroupBy group_by) {
  beginResetModel();
  grid_.SetGroupsOrder(group_by);
  if (grid_.RowCount() > 0) grid_.Populate();
  endResetModel();
}

void FileListModel::Reset() {
  beginResetModel();
  endResetModel();
}

void FileListModel::RowsChanged() {
  if (rowCount() == 0) return;
  emit dataChanged(index(0, 0), index(rowCount() - 1, kColumnCount - 1));
}
