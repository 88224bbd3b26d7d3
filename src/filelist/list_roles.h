#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <Qt>
#include <cstddef>
#include <string_view>

#include "filelist/name_pieces_qt.h"
#include "platform/qt/text_qt.h"

/// What a list of files tells its painter beyond Qt's own roles. A model gives a role where it
/// applies and nothing elsewhere.
enum ListRole : int {
  kGroupTextRole = Qt::UserRole + 1,  ///< QString: the row is a group row of this text
  kGroupCountRole,                    ///< QString: "12 files"
  kMarkRole,                          ///< int: the `Mark` of this cell
  kMarkedNameRole,                    ///< MarkedName: a name with its changed part
  kReasonRole,                        ///< QString: why the file of this cell failed
};

/// A name as it is painted.
struct MarkedName {
  NamePieces pieces;
  bool is_new = false;  ///< marks stand for what came; else for what went
  bool muted = false;   ///< of a file that is passed over
};
Q_DECLARE_METATYPE(MarkedName)

/// "1 file", "12 files": what a group row tells at its right.
inline QString FileCount(std::size_t count) {
  return count == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(count);
}

/// What a screen reader says of a file row: "failed: The name is too long. IMG_ removed", and
/// "done, IMG_ removed" where there is no reason.
inline QString DescribeState(const QString& state, const QString& reason, const QString& more) {
  QString words = state;
  if (!reason.isEmpty()) words += QStringLiteral(": ") + reason;
  if (!more.isEmpty()) words += (reason.isEmpty() ? QStringLiteral(", ") : QString(u' ')) + more;
  return words;
}

/// What every cell of a group row answers: the row is one heading across all columns.
inline QVariant GroupRowData(std::string_view group, std::size_t file_count, int role) {
  switch (role) {
    case Qt::DisplayRole:
    case kGroupTextRole:
      return text::Shown(group);
    case kGroupCountRole:
      return FileCount(file_count);
    case Qt::AccessibleDescriptionRole:
      return QString(QStringLiteral("group, ") + FileCount(file_count));
    default:
      return {};
  }
}
