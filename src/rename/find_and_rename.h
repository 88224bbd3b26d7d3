#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/records.h"
#include "platform/files.h"
#include "rename/holders.h"
#include "rename/numbering.h"

/// Frees a name that a pass needs, by moving its holder aside under a free numbered name, from
/// where it goes on when its own turn comes. This serves chains (a to b, b to c) and swaps without
/// planning the whole pass.
class NameFreer {
 public:
  enum class Pass : std::uint8_t {
    kRun,          ///< holders are files of checked rows that are still to be renamed
    kUndo,         ///< holders are files of done rows, in the same folder
    kUndoAnyPath,  ///< the same, whatever their folder; so it is while "Move to" is chosen
  };

  /// All for the length of one pass.
  NameFreer(Pass pass, Records& records, FileSystem& files, Numbering& numbering);

  /// `pName` is taken in the folder `pPath` (with closing separator). When its holder is a row
  /// that will go away, moves that file aside and notes it in its row; whether the move was done
  /// is not told, the caller's own operation shows it. Else, in a run, `CorrectedNewName` takes a
  /// free numbered name; in an undo nothing happens.
  void FindAndRename(std::string_view pPath, std::string_view pName, std::string& CorrectedNewName);

  /// The name by which a row holds a name, its source name in a run, was written.
  void HeldNameChanged(std::size_t record) { holders_.KeyChanged(record); }

 private:
  std::string_view HeldName(const FileRow& row) const;
  std::size_t Key(std::string_view path, std::string_view name) const;
  std::optional<std::size_t> Holder(std::string_view pPath, std::string_view pName);
  bool IsHolder(const FileRow& row, std::string_view pPath, std::string_view pName) const;
  void MoveAside(std::size_t record, std::string_view folder, const std::string& candidate);

  const Pass pass_;
  Records& records_;
  FileSystem& files_;
  Numbering& numbering_;
  HolderIndex holders_;
};
