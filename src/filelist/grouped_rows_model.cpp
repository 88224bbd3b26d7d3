#include "filelist/grouped_rows_model.h"

#include <algorithm>
#include <functional>

#include "common/problem_text.h"
#include "filelist/changed_part.h"
#include "filelist/list_roles.h"
#include "platform/qt/text_qt.h"

namespace {

Qt::Alignment AlignmentOf(Cell cell) {
  if (cell == Cell::kMark) return Qt::AlignCenter;
  return (cell == Cell::kNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

/// "1 file", "12 files": what a group row tells at its right.
QString FileCount(std::size_t count) {
  return count == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(count);
}

/// What every cell of a group row answers: the row is one heading across all columns.
QVariant GroupData(const GroupedRows::Group& group, bool folder, int role) {
  switch (role) {
    case Qt::DisplayRole:
    case kGroupTextRole:
      return text::Shown(group.text);
    case kGroupIsFolderRole:
      return folder;
    case kGroupCountRole:
      return FileCount(group.file_count);
    case Qt::AccessibleDescriptionRole:
      return QString(QStringLiteral("group, ") + FileCount(group.file_count));
    default:
      return {};
  }
}

/// Why the operation failed or could not be undone; empty when it didn't.
QString ReasonOf(const RecordFacts& facts) {
  return text::Shown(mCommon::ProblemText(facts.problem));
}

QString VerdictOf(const RecordFacts& facts) {
  return text::Shown(VerdictText(facts.verdict));
}

/// "waiting, IMG_ removed", "failed: The name is too long. IMG_ removed": what else only colours,
/// marks and tooltips tell.
QString Describe(const RecordFacts& facts) {
  QStringList more;
  if (!facts.checked) more += QStringLiteral("not checked");
  if (const QString verdict = VerdictOf(facts); !verdict.isEmpty()) more += verdict;
  if (facts.out_of_date) {
    more += QStringLiteral("new name out of date");
  } else if (facts.new_name) {
    const QString change = text::Shown(DescribeChange(facts.old_name, *facts.new_name));
    more += change.isEmpty() ? QStringLiteral("name unchanged") : change;
  }
  QString words = text::Shown(facts.state);
  const QString reason = ReasonOf(facts);
  if (!reason.isEmpty()) words += QStringLiteral(": ") + reason;
  if (!more.isEmpty()) {
    words += reason.isEmpty() ? QStringLiteral(", ") : QStringLiteral(" ");
    words += more.join(QStringLiteral(", "));
  }
  return words;
}

MarkedName MarkedNameOf(const RecordFacts& facts, Cell cell, const QString& shown) {
  MarkedName name;
  name.is_new = cell == Cell::kNewName;
  name.muted = name.is_new ? facts.out_of_date : !facts.checked;
  name.warned = name.is_new && facts.verdict.problem != NameProblem::kNone;
  if (!facts.checked || !facts.new_name || facts.out_of_date) {
    name.pieces = {{shown, false}};
  } else if (name.is_new) {
    name.pieces = MarkNew(facts.old_name, *facts.new_name);
  } else {
    name.pieces = MarkGone(facts.old_name, *facts.new_name);
  }
  return name;
}

}  // namespace

GroupedRowsModel::GroupedRowsModel(RecordList& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {}

int GroupedRowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.Rows().RowCount());
}

int GroupedRowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
}

bool GroupedRowsModel::IsFileRow(int row) const {
  return row >= 0 && row < rowCount() && !list_.Rows().IsGroupRow(static_cast<std::size_t>(row));
}

std::size_t GroupedRowsModel::LookOf(int row) const {
  if (!IsFileRow(row)) return static_cast<std::size_t>(row);
  const RecordFacts facts = Facts(row);
  const auto number = [](auto value) { return static_cast<std::size_t>(value); };
  const std::hash<std::string_view> hash;
  std::size_t look = RecordOf(row);
  for (const std::size_t part : {hash(facts.old_name), hash(facts.new_name.value_or("")),
                                 number(facts.mark), number(facts.problem), number(facts.checked),
                                 number(facts.out_of_date), number(facts.verdict.problem)}) {
    look = look * 31 + part;
  }
  return look;
}

QVariant GroupedRowsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  if (IsFileRow(index.row())) return FileData(index.row(), ColumnAt(index.column()), role);
  return GroupData(list_.Rows().GroupOf(static_cast<std::size_t>(index.row())),
                   list_.GroupsAreFolders(), role);
}

QString GroupedRowsModel::TextOf(int row, const ListColumn& column) const {
  return column.text ? text::Shown(column.text(RecordOf(row))) : QString();
}

QVariant GroupedRowsModel::FileData(int row, const ListColumn& column, int role) const {
  const Cell cell = column.cell;
  const bool name = cell == Cell::kOldName || cell == Cell::kNewName;
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(row, column);
    case Qt::AccessibleTextRole:
      return cell == Cell::kCheck ? text::Shown(Facts(row).old_name) : TextOf(row, column);
    case Qt::AccessibleDescriptionRole:
      return Describe(Facts(row));
    case Qt::TextAlignmentRole:
      return QVariant(AlignmentOf(cell));
    case Qt::CheckStateRole:
      if (cell == Cell::kCheck) return IsChecked(row) ? Qt::Checked : Qt::Unchecked;
      return {};
    case kMarkRole:
      return cell == Cell::kMark ? QVariant(static_cast<int>(Facts(row).mark)) : QVariant();
    case kReasonRole:
      return name || cell == Cell::kMark ? QVariant(ReasonOf(Facts(row))) : QVariant();
    case kVerdictRole:
      return cell == Cell::kNewName ? QVariant(VerdictOf(Facts(row))) : QVariant();
    case kMarkedNameRole:
      if (!name) return {};
      return QVariant::fromValue(MarkedNameOf(Facts(row), cell, TextOf(row, column)));
    default:
      return {};
  }
}

QVariant GroupedRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const ListColumn& column = ColumnAt(section);
  if (role == Qt::DisplayRole) return text::ToQt(column.caption);
  if (role == Qt::TextAlignmentRole) {
    // The arrow of the sort stands at the right end, where a number's heading would be.
    const bool arrow = column.cell == Cell::kNumber && section == list_.SortColumn();
    return QVariant(AlignmentOf(arrow ? Cell::kText : column.cell));
  }
  if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
    if (column.cell == Cell::kCheck) return tr("Only ticked files get a new name");
    if (!list_.CanSort(section)) return {};
    return tr("Click to sort, again to reverse, a third time for the original order");
  }
  return {};
}

Qt::ItemFlags GroupedRowsModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || index.row() >= rowCount()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  const bool check = ColumnAt(index.column()).cell == Cell::kCheck;
  if (check && IsFileRow(index.row())) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool GroupedRowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable)) return false;
  CheckRows({index.row()}, value.toInt() == Qt::Checked);
  return true;
}

void GroupedRowsModel::CheckRows(const std::vector<int>& rows, bool checked) {
  int first = rowCount();
  int last = -1;
  for (const int row : rows) {
    if (!IsFileRow(row)) continue;
    list_.Source().check(RecordOf(row), checked);
    first = std::min(first, row);
    last = std::max(last, row);
  }
  if (last < 0) return;
  emit dataChanged(index(first, 0), index(last, columnCount() - 1));
  emit rowChecked(first);
}

void GroupedRowsModel::sort(int column, Qt::SortOrder order) {
  list_.SetSortOrder(column, order == Qt::AscendingOrder);
  ShowAnew();
}

void GroupedRowsModel::Regroup(int column) {
  list_.SetGroupColumn(column);
  ShowAnew();
}

void GroupedRowsModel::ShowAnew() {
  if (rowCount() > 0) Populate();
}

void GroupedRowsModel::Populate() {
  beginResetModel();
  list_.Populate();
  endResetModel();
}

void GroupedRowsModel::Clear() {
  beginResetModel();
  list_.Clear();
  endResetModel();
}

void GroupedRowsModel::Reset() {
  beginResetModel();
  endResetModel();
}

void GroupedRowsModel::RowsChanged() {
  if (rowCount() == 0) return;
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}
