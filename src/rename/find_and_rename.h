#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/pass.h"
#include "platform/files.h"
#include "rename/holders.h"
#include "rename/numbering.h"
#include "rename/row_places.h"

/// Frees a name that a pass needs, by moving its holder aside under a free numbered name, from
/// where it goes on when its own turn comes. This serves chains (a to b, b to c) and swaps without
/// planning the whole pass. A holder's row is written only when its file was moved.
class NameFreer {
 public:
  /// All for the length of one pass.
  NameFreer(Pass& pass, Numbering& numbering)
      : pass_(pass),
        state_(pass.state),
        records_(pass.records),
        files_(pass.services.files),
        numbering_(numbering) {}
  NameFreer(const NameFreer&) = delete;
  NameFreer& operator=(const NameFreer&) = delete;

 protected:
  /// Moves the file at `place` to a free numbered name in its folder, by the user's texts around
  /// the number or, where these can't be had, by safe ones. Answers the name, "" when it is where
  /// it was. `file` is its fingerprint, which is kept true.
  std::string MoveAside(const RowPlace& place, Fingerprint& file);

  Pass& pass_;
  const RunState& state_;
  Records& records_;
  FileSystem& files_;
  Numbering& numbering_;

 private:
  std::string MoveAside(const RowPlace& place, const NumberTexts& texts, Fingerprint& file);
};

/// In a run the holders are files of ticked rows that are still to get another name.
class RunNameFreer : public NameFreer {
 public:
  using NameFreer::NameFreer;

  /// `pName` is taken in the folder `pPath` (with closing separator). When its holder is a row that
  /// will go away, moves that file aside and answers the row. Else, or when it can't be moved,
  /// `CorrectedNewName` takes a free numbered name. May let events run; when the pass is to end by
  /// then, nothing is moved.
  std::optional<std::size_t> FindAndRename(std::string_view pPath, std::string_view pName,
                                           std::string& CorrectedNewName);

 private:
  std::size_t Key(std::string_view path, std::string_view name) const;
  std::optional<std::size_t> Holder(std::string_view pPath, std::string_view pName);
  bool MakeIndex();
  bool WantsAnotherName(const FileRow& row);
  bool MakeWay(std::size_t record);

  std::optional<HolderIndex> holders_;  ///< made at the first question; most runs ask none
};

/// In an undo the holders are all files of rows that take part in it.
class UndoNameFreer : public NameFreer {
 public:
  using NameFreer::NameFreer;

  /// Something stands where the file of the row `asker` is to go back to. If it is the file of
  /// another row that takes part, moves it aside and answers true. Events as above.
  bool FindAndRename(std::size_t asker);

 private:
  bool MakeIndex();
  bool MoveHolderAside(std::size_t asker, const RowPlace& wanted);
  bool MakeWay(std::size_t record, RowFile file);

  EntryKeys keys_{files_};
  std::optional<HolderIndex> holders_;  ///< as above
};
