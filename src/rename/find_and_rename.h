#pragma once

#include <string>
#include <string_view>

#include "core/records.h"
#include "platform/files.h"
#include "rename/holders.h"
#include "rename/numbering.h"

/// Frees a name that a run needs: a file of a checked row that is itself still to be renamed is
/// moved aside under a free numbered name and goes on from there when its turn comes. This serves
/// chains (a to b, b to c) and swaps without planning the whole run.
class NameFreer {
 public:
  /// All for the length of one run.
  NameFreer(Records& records, FileSystem& files, Numbering& numbering);

  /// `pName` is taken in the folder `pPath` (with closing separator). When its holder is a row
  /// that will go away, moves that file aside and notes it in its row; whether the move was done
  /// is not told, the caller's own operation shows it. Else `CorrectedNewName` takes a free
  /// numbered name.
  void FindAndRename(std::string_view pPath, std::string_view pName, std::string& CorrectedNewName);

  /// The source name of a row was written.
  void SourceNameChanged(std::size_t record) { pending_.KeyChanged(record); }

 private:
  void MoveAside(std::size_t record, const std::string& candidate);

  Records& records_;
  FileSystem& files_;
  Numbering& numbering_;
  HolderIndex pending_;
};
