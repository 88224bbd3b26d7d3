#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

/// Run and undo once more, in the plainest way: files are a map of paths, every search goes through
/// all rows or all names from the first. Slow, short and without any index, so that it can be read
/// beside the rules and believed; the passes are held against it. Shares only the letter case of
/// text with the program.

struct PlainEntry {
  enum Kind { kFolder, kFile, kLink };
  Kind kind = kFile;
  std::string content;
  int serial = 0;  ///< tells one file from every other, for as long as nobody writes to it
};

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
  int made = 0;              ///< serial of the copy that the run made
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
  std::set<int> failing;     ///< which of its moves, copies, deletions and new folders fail
  int cancel_at = 0;         ///< at which letting of events the user cancels; 0 is never
  bool slow_copies = false;  ///< events run inside each copy too
};

class PlainModel {
 public:
  std::map<std::string, PlainEntry> disk;  ///< by path, folders without a closing separator
  std::vector<PlainRow> rows;
  PlainOptions options;
  std::vector<int> counted;  ///< per row
  int progress = 0;
  bool gCancelRequested = false;
  std::vector<std::string> failures;   ///< path, source name, new name
  std::vector<std::string> conflicts;  ///< path, new path, source, final and planned name
  int operations = 0;                  ///< of the last pass
  int last_serial = 0;
  std::size_t longest_name = 0;  ///< bytes that a name may have; 0 is any number

  void Run(const PlainTrouble& trouble);
  void Undo(const PlainTrouble& trouble);

  /// True when an entry of that name is there; "*" and "?" in the last name match.
  bool FileExist(const std::string& path) const;

  /// One text a record, each part in brackets.
  static std::string Joined(const std::vector<std::string>& parts);

 private:
  void Begin(const PlainTrouble& trouble);
  bool GoesOn(std::size_t i);
  void LetEventsRun();
  bool OperationWorks() { return !trouble_.failing.contains(++operations); }

  bool TargetIsFree(const std::string& to) const;
  bool Move(const std::string& from, const std::string& to);
  bool Copy(const std::string& from, const std::string& to, int& made);
  bool Delete(const std::string& path, int made);
  void CreateFolderPath(const std::string& path);

  std::string NumberedName(const std::string& path, const std::string& name) const;
  void FindAndRename(const std::string& path, const std::string& name, bool undo,
                     std::string& corrected);

  void RunRow(PlainRow& row);
  std::string TargetFolder(const PlainRow& row) const;
  void ResolveConflict(PlainRow& row, const std::string& folder, bool& resolved);
  void Succeed(PlainRow& row, const std::string& folder, bool resolved, const std::string& planned);

  bool UndoOperation(const PlainRow& row);
  bool MoveBack(const PlainRow& row, const std::string& folder, bool in_place);
  void Restore(PlainRow& row);

  PlainTrouble trouble_;
  int events_ = 0;
};
