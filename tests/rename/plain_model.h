#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

/// Run and undo once more, in the plainest way: every search goes through all rows or all names
/// from the first, without any index, so that it can be read beside the rules and believed. Shares
/// only texts (letter case, characters) with the program.

/// The items of a row that take part.
struct PlainRow {
  std::string path;          ///< 0, with its closing separator
  bool checked = true;       ///< 4
  std::string source;        ///< 5
  std::string mark = ">>";   ///< 6; "Failed" is the red one
  std::string new_name;      ///< 7
  std::string rollback;      ///< 9
  std::string temp;          ///< 10
  std::string new_path;      ///< 11
  int mode = -1;             ///< 12, -1 is empty
  std::string planned_name;  ///< 13
  int RowTag = 0;            ///< 0 is empty
  bool counted = false;      ///< on the progress bar
  CopyIdentities copied = {};

  bool TakesPart() const { return RowTag == 1 || !rollback.empty(); }
};

struct PlainOptions {
  int destination = 0;
  std::string fdDestination, fdSourceFolder;
  bool subfolders = true;
  int add_number = 1;
  std::string left = "_{", right = "}";
};

class PlainModel {
 public:
  explicit PlainModel(FileSystem& files) : files_(files) {}

  std::vector<PlainRow> rows;
  PlainOptions options;
  bool cancelled = false;
  std::vector<std::string> failures;   ///< path, source name, new name
  std::vector<std::string> conflicts;  ///< path, new path, source, final and planned name

  /// The user cancels when events run for the `cancel_at`th time; 0 is never. With `slow_copies`,
  /// they run inside each copy too.
  void Run(int cancel_at, bool slow_copies);
  void Undo(int cancel_at);

  bool AnyTakesPart() const;  ///< in an undo

  /// One text a record, each part in brackets.
  static std::string Joined(const std::vector<std::string>& parts);

 private:
  using Texts = std::pair<std::string, std::string>;             ///< around a number
  using Held = std::pair<std::string, std::string PlainRow::*>;  ///< a file: folder and name

  void Begin(int cancel_at);
  void LetEventsRun();
  bool GoesOn(std::size_t i);
  bool AreOneName(const std::string& a, const std::string& b);
  bool NeededByUndo(const std::string& folder);
  bool CreateFolderPath(const std::string& path);
  std::string NumberedName(const std::string& path, const std::string& name);
  std::string AsideName(const std::string& path, const std::string& name, const Texts& texts);
  std::string MoveAside(const std::string& path, const std::string& name);

  bool RunRow(PlainRow& row);
  bool TargetFolder(const PlainRow& row, std::string& folder);
  bool ResolveConflict(PlainRow& row, const std::string& folder);
  bool MoveHolderAside(const std::string& path, const std::string& name);

  static std::vector<Held> FilesOf(const PlainRow& row);
  bool UndoRow(PlainRow& row);
  bool UndoDone(PlainRow& row);
  bool MoveBack(PlainRow& row, const std::string& present);
  void FreeFormerName(const PlainRow& row, const std::string& former);

  FileSystem& files_;
  int cancel_at_ = 0, events_ = 0;
  bool slow_copies_ = false;
  std::vector<std::pair<std::string, FolderIdentity>> made_folders_;
};
