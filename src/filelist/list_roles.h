#pragma once

#include <QMetaType>
#include <Qt>

#include "filelist/name_pieces_qt.h"

/// What a list of files tells its painter beyond Qt's own roles. A model gives a role where it
/// applies and nothing elsewhere.
enum ListRole : int {
  kGroupTextRole = Qt::UserRole + 1,  ///< QString: the row is a group row of this text
  kGroupIsFolderRole,                 ///< bool: its text is the path of a folder
  kGroupCountRole,                    ///< QString: "12 files"
  kMarkRole,                          ///< int: the `Mark` of this cell
  kMarkedNameRole,                    ///< MarkedName: a name with its changed part
  kReasonRole,                        ///< QString: why the file of this cell failed
  kVerdictRole,                       ///< QString: what is wrong with the new name of this cell
};

/// A name as it is painted.
struct MarkedName {
  NamePieces pieces;
  bool is_new = false;  ///< marks stand for what came; else for what went
  bool muted = false;   ///< of a file that is passed over; a new one is a draft
  bool warned = false;  ///< something is wrong with it
};
Q_DECLARE_METATYPE(MarkedName)
