#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

/// Run and undo once more, in the plainest way: every search goes through all rows or all names
/// from the first, on a disk of its own. Slow, short and without any index, so that it can be read
/// beside the rules and believed; the passes are held against it. Shares only texts (letter case,
/// characters) with the program.

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
  CopyIdentities copied;

  bool TakesPart() const { return RowTag == 1 || !rollback.empty(); }
};

struct PlainOptions {
  int destination = 0;
  std::string fdDestination;
  std::string fdSourceFolder;
  bool subfolders = true;
  int add_number = 1;
  std::string left = "_{";
  std::string right = "}";
};

/// What goes wrong during one pass; all counted from 1.
struct PlainTrouble {
  std::set<int> failing;     ///< which of its operations fail
  int cancel_at = 0;         ///< at which letting of events the user cancels; 0 is never
  bool slow_copies = false;  ///< events run inside each copy too
};

class PlainModel {
 public:
  std::vector<PlainRow> rows;
  PlainOptions options;
  std::vector<int> counted;  ///< per row
  int progress = 0;
  bool gCancelRequested = false;
  std::vector<std::string> failures;   ///< path, source name, new name
  std::vector<std::string> conflicts;  ///< path, new path, source, final and planned name

  void Run(FileSystem& files, const PlainTrouble& trouble);
  void Undo(FileSystem& files, const PlainTrouble& trouble);

  /// Whether undo has anything to do.
  bool AnyTakesPart() const;

  /// One text a record, each part in brackets.
  static std::string Joined(const std::vector<std::string>& parts);

 private:
  /// The two texts around a number.
  using Texts = std::pair<std::string, std::string>;
  /// A name in a row, and the folder before it.
  struct Held {
    std::string folder;
    std::string PlainRow::*name;
  };

  void Begin(FileSystem& files, const PlainTrouble& trouble);
  bool GoesOn(std::size_t i);
  void LetEventsRun();

  bool AreOneName(const std::string& a, const std::string& b);
  bool CreateFolderPath(const std::string& path);
  std::string NumberedName(const std::string& path, const std::string& name);
  std::string AsideName(const std::string& path, const std::string& name, const Texts& texts);
  std::string MoveAside(const std::string& path, const std::string& name);

  bool RunRow(PlainRow& row);
  bool ResolveConflict(PlainRow& row, const std::string& folder);
  bool MoveHolderAside(const std::string& path, const std::string& name);
  void Succeed(PlainRow& row, const std::string& folder, bool resolved, const std::string& planned);

  static std::vector<Held> FilesOf(const PlainRow& row);
  bool UndoRow(PlainRow& row);
  bool UndoDone(PlainRow& row);
  bool MoveBack(PlainRow& row, const std::string& present);

  PlainTrouble trouble_;
  FileSystem* files_ = nullptr;
  int events_ = 0;
  std::vector<std::pair<std::string, FolderIdentity>> made_folders_;
};
