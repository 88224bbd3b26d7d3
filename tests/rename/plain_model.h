#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

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
  std::int16_t add_number = 1;
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
  void Run(int cancel_at, bool slow_copies) {
    Begin(cancel_at);
    slow_copies_ = slow_copies;
    for (std::size_t i = 0; i < rows.size() && GoesOn(i) && !cancelled; ++i) {
      PlainRow& row = rows[i];
      row.counted = true;
      if (!row.checked || row.RowTag == 1 || RunRow(row)) continue;
      if (!cancelled) {
        failures.push_back(Joined({row.path, row.source, row.new_name}));
        row.mark = "Failed";
      }
      Restore(row.new_name, row.planned_name);
    }
  }

  void Undo(int cancel_at) {
    Begin(cancel_at);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!GoesOn(i)) return;
      PlainRow& row = rows[i];
      row.counted = false;
      if (row.TakesPart() && !UndoRow(row)) {
        failures.push_back(Joined({row.path, row.source, row.rollback}));
      }
      if (row.mark == "Failed") row.mark = ">>";
    }
    std::erase_if(made_folders_, [this](const auto& made) {
      return files_.DeleteMadeFolder(made.first, made.second);
    });
  }

  bool AnyTakesPart() const {
    return !made_folders_.empty() || std::ranges::any_of(rows, &PlainRow::TakesPart);
  }

  /// One text a record, each part in brackets.
  static std::string Joined(const std::vector<std::string>& parts) {
    std::string joined;
    for (const std::string& part : parts) joined += "[" + part + "]";
    return joined;
  }

 private:
  using Texts = std::pair<std::string, std::string>;             ///< around a number
  using Held = std::pair<std::string, std::string PlainRow::*>;  ///< a file: folder and name

  static bool CanBeAName(const std::string& name) {
    using namespace std::string_literals;
    return !name.empty() && name.find_first_of("/\0"s) == name.npos;
  }

  /// `name` takes `kept`, if that is set, and `kept` is emptied.
  static void Restore(std::string& name, std::string& kept) {
    if (!kept.empty()) name = kept;
    kept.clear();
  }

  void Begin(int cancel_at) {
    cancel_at_ = cancel_at, events_ = 0, cancelled = false;
    failures.clear();
    conflicts.clear();
  }

  void LetEventsRun() {
    if (++events_ == cancel_at_) cancelled = true;
  }

  bool GoesOn(std::size_t i) {
    if (i % std::max<std::size_t>(1, rows.size() / 300) == 0) LetEventsRun();
    return !cancelled;
  }

  /// One directory entry, be it under two names that differ in letter case.
  bool AreOneName(const std::string& a, const std::string& b) {
    return a == b || files_.IsSameEntry(a, b);
  }

  std::string NumberedName(const std::string& path, const std::string& name) {
    const std::size_t dot = name.rfind('.');
    const std::string extension = dot == name.npos ? "" : name.substr(dot + 1);
    std::string candidate = name;
    for (int number = 1; files_.Exists(path + candidate); ++number) {
      candidate = name.substr(0, dot) + options.left + std::to_string(number) + options.right;
      if (!extension.empty()) candidate += "." + extension;
    }
    return candidate;
  }

  /// At most 255 bytes with what `path` holds of the name already; "" where that can't be.
  std::string AsideName(const std::string& path, const std::string& name, const Texts& texts) {
    if (!CanBeAName("x" + texts.first + texts.second)) return "";
    const std::size_t most = 255 - path.substr(path.rfind('/') + 1).size();
    const std::size_t dot = name.rfind('.');
    for (int number = 1;; ++number) {
      const std::string middle = texts.first + std::to_string(number) + texts.second;
      std::string stem = name.substr(0, dot);
      std::string extension = dot == name.npos || dot + 1 == name.size() ? "" : name.substr(dot);
      if (middle.size() + extension.size() > most) stem = name, extension = "";
      if (middle.size() > most) return "";
      while (stem.size() + middle.size() + extension.size() > most) {
        stem = text::Left(stem, text::Length(stem) - 1);
      }
      const std::string candidate = stem + middle + extension;
      if (!files_.Exists(path + candidate)) return candidate;
    }
  }

  /// Answers the new name, "" when the file is where it was.
  std::string MoveAside(const std::string& path, const std::string& name) {
    const Texts users{options.left, options.right}, safe{"_{", "}"};
    for (const Texts& texts : {users, safe}) {
      const std::string aside = AsideName(path, name, texts);
      if (!aside.empty() && files_.MoveFile(path + name, path + aside, {})) return aside;
      if (texts == safe) break;
    }
    return "";
  }

  bool NeededByUndo(const std::string& folder) {
    return std::ranges::any_of(rows, [&](const PlainRow& row) {
      const std::string former = row.path + row.rollback;
      return row.TakesPart() && (files_.ResolveFolder(former) == files_.ResolveFolder(folder) ||
                                 files_.IsSameEntry(former, folder));
    });
  }

  /// False where undo needs the name of a level.
  bool CreateFolderPath(const std::string& path) {
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
      const std::string level = path.substr(0, end);
      const bool there = files_.Look(level).has_value();
      if (!there && NeededByUndo(level)) return false;
      if (!there && files_.CreateDirectory(level)) {
        const std::string made = files_.ResolveFolder(level);
        const FolderIdentity identity = *files_.IdentifyFolder(made);
        const bool needed = NeededByUndo(level);  // its name in other letters
        if (!needed || !files_.DeleteMadeFolder(made, identity)) {
          made_folders_.emplace(made_folders_.begin(), made, identity);
        }
        if (needed) return false;
      }
      if (end == path.npos) return true;
    }
  }

  /// False where nothing may be put there.
  bool TargetFolder(const PlainRow& row, std::string& folder) {
    folder = row.path;
    if (options.destination == 0) return true;
    if (!options.subfolders) {
      folder = options.fdDestination;
    } else if (row.path.starts_with(options.fdSourceFolder)) {
      folder = options.fdDestination + row.path.substr(options.fdSourceFolder.size());
    }
    if (!folder.starts_with('/')) return false;
    const std::string bare = folder.ends_with('/') ? folder.substr(0, folder.size() - 1) : folder;
    if (!files_.Look(bare) && !CreateFolderPath(bare)) return false;
    folder = files_.ResolveFolder(folder);
    return true;
  }

  bool RunRow(PlainRow& row) {
    std::string folder;
    if (!CanBeAName(row.new_name) || !TargetFolder(row, folder)) return false;
    const std::string planned = row.new_name;
    const bool resolved = ResolveConflict(row, folder);
    if (!CanBeAName(row.new_name)) return false;
    const auto go_on = [this] {
      if (slow_copies_) LetEventsRun();
      return !cancelled;
    };
    const std::string source = row.path + row.source, target = folder + row.new_name;
    const bool copies = options.destination == 1;
    const bool done = copies ? files_.CopyFile(source, target, go_on, &row.copied)
                             : files_.MoveFile(source, target, {});
    if (!done) return false;
    if (row.rollback.empty()) row.rollback = row.source;
    if (!copies) row.source = row.rollback;
    row.RowTag = 1, row.mark = "Done", row.mode = options.destination;
    if (row.mode != 0) row.new_path = folder;
    if (resolved) {
      conflicts.push_back(Joined({row.path, row.new_path, row.source, row.new_name, planned}));
    }
    return true;
  }

  /// Whether a numbered name took the place of the planned one.
  bool ResolveConflict(PlainRow& row, const std::string& folder) {
    const std::string target = folder + row.new_name;
    if (options.destination != 1 && AreOneName(row.path + row.source, target)) return false;
    if (!files_.Exists(target)) return false;
    const bool in_place = options.destination == 0;
    const bool same = options.destination == 2 && options.fdSourceFolder == options.fdDestination;
    std::string where = folder;
    if (in_place || same) {
      where = in_place || options.subfolders ? row.path : options.fdDestination;
      if (MoveHolderAside(where, row.new_name)) return false;
    }
    if (options.add_number != 1) return false;
    row.planned_name = row.new_name;
    row.new_name = NumberedName(where, row.new_name);
    return true;
  }

  /// The holder is a file that is itself still to get another name.
  bool MoveHolderAside(const std::string& path, const std::string& name) {
    for (const bool exact : {true, false}) {
      for (PlainRow& row : rows) {
        const std::string held = row.path + row.source;
        if (!row.checked || row.RowTag == 1 || row.path != path) continue;
        if (exact ? row.source != name : !AreOneName(held, path + name)) continue;
        if (AreOneName(held, row.path + row.new_name)) continue;
        const std::string aside = MoveAside(row.path, row.source);
        if (aside.empty()) return false;
        if (row.rollback.empty()) row.rollback = row.source;
        row.source = aside;
        return true;
      }
    }
    return false;
  }

  bool UndoRow(PlainRow& row) {
    if (row.RowTag == 1 && !UndoDone(row)) return false;
    if (row.source != row.rollback && !MoveBack(row, row.path + row.source)) return false;
    Restore(row.source, row.rollback);
    row.mark = ">>";
    return true;
  }

  bool UndoDone(PlainRow& row) {
    const std::string present = (row.mode == 0 ? row.path : row.new_path) + row.new_name;
    const bool back = row.mode != 1 ? MoveBack(row, present)
                                    : files_.IsVeryFile(row.path + row.source, row.copied.source) &&
                                          files_.DeleteMadeFile(present, row.copied.made);
    if (!back) return false;
    Restore(row.new_name, row.temp);
    Restore(row.new_name, row.planned_name);
    if (row.mode != 1) row.source = row.rollback;
    row.RowTag = 0, row.mark = ">>", row.mode = -1;
    row.new_path.clear();
    return true;
  }

  bool MoveBack(PlainRow& row, const std::string& present) {
    const std::string former = row.path + row.rollback;
    if (!AreOneName(present, former) && files_.Look(former)) FreeFormerName(row, former);
    return files_.MoveFile(present, former, {});
  }

  /// Whatever file of another row stands there is moved aside.
  void FreeFormerName(const PlainRow& row, const std::string& former) {
    for (const bool exact : {true, false}) {
      for (PlainRow& other : rows) {
        if (&other == &row) continue;
        for (const auto& [folder, name] : FilesOf(other)) {
          const std::string path = folder + other.*name;
          const bool one = exact ? files_.ResolveFolder(path) == files_.ResolveFolder(former)
                                 : AreOneName(path, former);
          if (!one) continue;
          const std::string aside = MoveAside(folder, other.*name);
          if (aside.empty()) return;
          if (name == &PlainRow::new_name && other.temp.empty()) other.temp = other.new_name;
          other.*name = aside;
          return;
        }
      }
    }
  }

  static std::vector<Held> FilesOf(const PlainRow& row) {
    const Held result(row.new_path.empty() ? row.path : row.new_path, &PlainRow::new_name);
    const Held source(row.path, &PlainRow::source);
    if (row.RowTag != 1) return row.rollback.empty() ? std::vector<Held>() : std::vector{source};
    const bool original_aside = row.mode == 1 && row.source != row.rollback;
    return original_aside ? std::vector{result, source} : std::vector{result};
  }

  FileSystem& files_;
  int cancel_at_ = 0, events_ = 0;
  bool slow_copies_ = false;
  std::vector<std::pair<std::string, FolderIdentity>> made_folders_;  ///< the last one first
};
