#include "rename/plain_model.h"

#include "platform/text.h"

namespace {

std::string Lower(const std::string& t) {
  return text::ToLower(t);
}

std::string LastName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

bool LeadsElsewhere(const std::string& name) {
  return name.find('/') != name.npos || name.find('\0') != name.npos;
}

/// Where the character at `name` ends: "?" stands for a whole one.
const char* Next(const char* name) {
  do {
    ++name;
  } while ((*name & 0xC0) == 0x80);
  return name;
}

bool Matches(const char* name, const char* pattern) {
  if (*pattern == '\0') return *name == '\0';
  if (*pattern == '*') {
    return Matches(name, pattern + 1) || (*name != '\0' && Matches(Next(name), pattern));
  }
  if (*name == '\0') return false;
  if (*pattern == '?') return Matches(Next(name), pattern + 1);
  return *pattern == *name && Matches(name + 1, pattern + 1);
}

}  // namespace

std::string PlainModel::Joined(const std::vector<std::string>& parts) {
  std::string joined;
  for (const std::string& part : parts) joined += "[" + part + "]";
  return joined;
}

// Files.

bool PlainModel::FileExist(const std::string& path) const {
  const std::string name = LastName(path);
  if (name.empty() || name.find('\0') != name.npos) return false;
  if (name == "." || name == "..") return true;
  if (name.find_first_of("*?") == name.npos) return disk.contains(path);
  for (const auto& [other, entry] : disk) {
    if (FolderOf(other) == FolderOf(path) && Matches(LastName(other).c_str(), name.c_str())) {
      return true;
    }
  }
  return false;
}

bool PlainModel::TargetIsFree(const std::string& to) const {
  const std::string name = LastName(to);
  if (name.empty() || name == "." || name == ".." || disk.contains(to)) return false;
  if (longest_name != 0 && name.size() > longest_name) return false;
  const auto folder = disk.find(FolderOf(to));
  return folder != disk.end() && folder->second.kind == PlainEntry::kFolder;
}

bool PlainModel::Move(const std::string& from, const std::string& to) {
  if (!OperationWorks()) return false;
  const auto source = disk.find(from);
  if (source == disk.end()) return false;
  if (from == to) return true;
  if (!TargetIsFree(to)) return false;
  disk[to] = source->second;
  disk.erase(from);
  return true;
}

bool PlainModel::Copy(const std::string& from, const std::string& to, int& made) {
  if (!OperationWorks()) return false;
  const auto source = disk.find(from);
  if (source == disk.end() || source->second.kind != PlainEntry::kFile) return false;
  if (!TargetIsFree(to)) return false;
  if (trouble_.slow_copies) LetEventsRun();
  if (gCancelRequested) return false;
  disk[to] = source->second;
  made = disk[to].serial = ++last_serial;
  return true;
}

/// Only the very file that was made.
bool PlainModel::Delete(const std::string& path, int made) {
  if (!OperationWorks()) return false;
  const auto found = disk.find(path);
  if (found == disk.end() || found->second.serial != made) return false;
  disk.erase(found);
  return true;
}

void PlainModel::CreateFolderPath(const std::string& path) {
  if (!path.starts_with('/')) return;
  for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string level = path.substr(0, end);
    if (!FileExist(level) && OperationWorks() && TargetIsFree(level)) {
      disk[level] = {PlainEntry::kFolder, "", 0};
    }
    if (end == path.npos) return;
  }
}

// Names.

std::string PlainModel::NumberedName(const std::string& path, const std::string& name) const {
  const std::size_t dot = name.rfind('.');
  const std::string base = name.substr(0, dot);
  const std::string extension = dot == name.npos ? "" : name.substr(dot + 1);
  std::string candidate = name;
  for (int number = 1; FileExist(path + candidate); ++number) {
    candidate = base + options.left + std::to_string(number) + options.right;
    if (!extension.empty()) candidate += "." + extension;
  }
  return candidate;
}

void PlainModel::FindAndRename(const std::string& path, const std::string& name, bool undo,
                               std::string& corrected) {
  const std::string candidate = NumberedName(path, name);
  const auto move = [&](const std::string& folder, const std::string& from) {
    if (!LeadsElsewhere(candidate)) Move(folder + from, folder + candidate);
  };
  const std::string wanted = Lower(name);
  for (PlainRow& row : rows) {
    if (undo) {
      if (row.RowTag != 1 || Lower(row.new_name) != wanted) continue;
      if (options.destination != 2 && row.path != path) continue;
      move(options.destination == 2 ? path : row.path, row.new_name);
      row.temp = row.new_name;
      row.new_name = candidate;
      return;
    }
    if (!row.checked || row.RowTag == 1 || row.path != path) continue;
    if (Lower(row.source) != wanted || wanted == Lower(row.new_name)) continue;
    move(row.path, row.source);
    if (row.rollback.empty()) row.rollback = row.source;
    row.source = candidate;
    return;
  }
  if (!undo) corrected = candidate;
}

// Both passes.

void PlainModel::Begin(const PlainTrouble& trouble) {
  trouble_ = trouble;
  operations = events_ = 0;
  gCancelRequested = false;
  failures.clear();
  conflicts.clear();
}

void PlainModel::LetEventsRun() {
  if (++events_ == trouble_.cancel_at) gCancelRequested = true;
}

bool PlainModel::GoesOn(std::size_t i) {
  const std::size_t step = rows.size() / 300 == 0 ? 1 : rows.size() / 300;
  if (i % step == 0) LetEventsRun();
  return !gCancelRequested;
}

// The run.

void PlainModel::Run(const PlainTrouble& trouble) {
  Begin(trouble);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!GoesOn(i)) return;
    if (counted[i] == 0) {
      counted[i] = 1;
      ++progress;
    }
    if (!rows[i].checked || rows[i].RowTag == 1) continue;
    RunRow(rows[i]);
    if (gCancelRequested) return;
  }
}

std::string PlainModel::TargetFolder(const PlainRow& row) const {
  if (options.destination == 0) return row.path;
  if (!options.subfolders) return options.fdDestination;
  if (!row.path.starts_with(options.fdSourceFolder)) return row.path;
  return options.fdDestination + row.path.substr(options.fdSourceFolder.size());
}

void PlainModel::RunRow(PlainRow& row) {
  const std::string source = row.path + row.source;
  const std::string planned = row.new_name;
  const std::string planned_before = row.planned_name;
  const std::string folder = TargetFolder(row);
  if (options.destination != 0) {
    const std::string bare = folder.ends_with('/') ? folder.substr(0, folder.size() - 1) : folder;
    if (!FileExist(bare)) CreateFolderPath(bare);
  }
  bool resolved = false, done = false;
  if (folder.starts_with('/') && !LeadsElsewhere(row.new_name)) {
    ResolveConflict(row, folder, resolved);
    const std::string target = folder + row.new_name;
    if (!LeadsElsewhere(row.new_name)) {
      done = options.destination == 1 ? Copy(source, target, row.made) : Move(source, target);
    }
  }
  if (done) {
    Succeed(row, folder, resolved, planned);
  } else if (gCancelRequested) {
    row.new_name = planned;
    row.planned_name = planned_before;
  } else {
    failures.push_back(Joined({row.path, row.source, row.new_name}));
    row.mark = "Failed";
  }
}

void PlainModel::ResolveConflict(PlainRow& row, const std::string& folder, bool& resolved) {
  const std::string target = folder + row.new_name;
  if (Lower(row.path + row.source) == Lower(target) && options.destination != 1) return;
  if (!FileExist(target)) return;
  const bool onto_itself =
      options.destination == 2 && options.fdSourceFolder == options.fdDestination;
  std::string corrected;
  if (options.destination == 0) {
    FindAndRename(row.path, row.new_name, false, corrected);
  } else if (onto_itself) {
    FindAndRename(options.subfolders ? row.path : options.fdDestination, row.new_name, false,
                  corrected);
  } else if (options.add_number == 1) {
    corrected = NumberedName(folder, row.new_name);
  }
  if (corrected.empty() || options.add_number != 1) return;
  row.planned_name = row.new_name;
  row.new_name = corrected;
  resolved = true;
}

void PlainModel::Succeed(PlainRow& row, const std::string& folder, bool resolved,
                         const std::string& planned) {
  if (row.rollback.empty()) {
    row.rollback = row.source;
  } else {
    row.source = row.rollback;
  }
  row.RowTag = 1;
  row.mark = "Done";
  if (options.destination > 0) row.new_path = folder;
  if (resolved) {
    conflicts.push_back(Joined({row.path, row.new_path, row.source, row.new_name, planned}));
  }
  row.mode = options.destination;
}

// The undo.

void PlainModel::Undo(const PlainTrouble& trouble) {
  Begin(trouble);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!GoesOn(i)) return;
    PlainRow& row = rows[i];
    if (counted[i] == 1) {
      counted[i] = 0;
      --progress;
    }
    if (row.RowTag == 1 || !row.rollback.empty()) {
      if (UndoOperation(row)) {
        Restore(row);
      } else if (row.RowTag != 1 || (row.mode >= 0 && row.mode <= 2)) {
        failures.push_back(Joined({row.path, row.source, row.rollback}));
      }
    }
    if (row.mark == "Failed") row.mark = ">>";
  }
}

bool PlainModel::UndoOperation(const PlainRow& row) {
  if (row.RowTag != 1) return Move(row.path + row.source, row.path + row.rollback);
  if (row.mode == 0) return MoveBack(row, row.path, true);
  if (row.mode == 1) return Delete(row.new_path + row.new_name, row.made);
  if (row.mode == 2) return MoveBack(row, row.new_path, Lower(row.path) == Lower(row.new_path));
  return false;
}

bool PlainModel::MoveBack(const PlainRow& row, const std::string& folder, bool in_place) {
  const std::string former = row.path + row.rollback;
  const std::string present = folder + row.new_name;
  if (in_place && Lower(former) != Lower(present) && FileExist(former)) {
    std::string ignored;
    FindAndRename(row.path, row.rollback, true, ignored);
  }
  return Move(present, former);
}

void PlainModel::Restore(PlainRow& row) {
  if (!row.temp.empty()) row.new_name = row.temp;
  row.temp.clear();
  if (!row.planned_name.empty()) row.new_name = row.planned_name;
  row.planned_name.clear();
  if (row.RowTag != 1) row.source = row.rollback;
  row.RowTag = 0;
  row.rollback.clear();
  row.new_path.clear();
  row.mode = -1;
  row.mark = ">>";
}
