#include "rename/model_world.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "rename/run.h"
#include "rename/undo.h"

namespace {

void LinkIn(MemoryFiles& files, const std::string& path, const std::string& leads_to) {
  files.contents[path] = "-> " + leads_to;
  if (files.folders.contains(leads_to)) files.folder_links[path] = leads_to;
}

std::map<std::string, std::string> AllOf(const MemoryFiles& files, const ModelDisk& disk) {
  std::map<std::string, std::string> all = files.contents;
  for (const std::string& folder : files.folders) {
    const bool inside =
        folder.starts_with(disk.root + "/") || folder.starts_with(disk.out_root + "/");
    if (inside) all[folder] = kFolderContent;
  }
  return all;
}

class MemoryDisk : public ModelDisk {
 public:
  explicit MemoryDisk(bool case_blind) {
    root = "/m";
    out_root = "/m/o";
    files_.case_blind = case_blind;
    files_.folders = {"", root, out_root};
  }
  FileSystem& Files() override { return files_; }
  void MakeFolder(const std::string& path) override { files_.folders.insert(path); }
  void Write(const std::string& path, const std::string& content) override {
    files_.contents[path] = content;
  }
  void MakeLink(const std::string& path, const std::string& leads_to) override {
    LinkIn(files_, path, leads_to);
  }
  void Remove(const std::string& path) override {
    files_.contents.erase(path);
    files_.folder_links.erase(path);
  }
  void OnCopy(std::function<void()> between) override { files_.in_copy = std::move(between); }
  std::map<std::string, std::string> Everything() override { return AllOf(files_, *this); }

 private:
  MemoryFiles files_;
};

class RealDisk : public ModelDisk {
 public:
  explicit RealDisk(bool two_devices) : in_("/dev/shm"), out_(two_devices ? "" : "/dev/shm") {
    root = in_.path();
    out_root = out_.path();
  }
  FileSystem& Files() override { return *files_; }
  void MakeFolder(const std::string& path) override { std::filesystem::create_directory(path); }
  void Write(const std::string& path, const std::string& content) override {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
  }
  void MakeLink(const std::string& path, const std::string& leads_to) override {
    std::filesystem::create_symlink(leads_to, path);
  }
  void Remove(const std::string& path) override { std::filesystem::remove(path); }
  void OnCopy(std::function<void()>) override {}
  std::map<std::string, std::string> Everything() override {
    std::map<std::string, std::string> all;
    for (const TempFolder* folder : {&in_, &out_}) {
      for (const auto& entry :
           std::filesystem::recursive_directory_iterator(folder->path() + "/")) {
        all[entry.path()] = entry.is_symlink()
                                ? "-> " + std::filesystem::read_symlink(entry).string()
                            : entry.is_directory() ? kFolderContent
                                                   : Content(entry.path());
      }
    }
    return all;
  }

 private:
  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TempFolder in_, out_;
  std::unique_ptr<FileSystem> files_ = MakePosixFileSystem();
};

/// Counts what changes the disk, and fails what the case names.
class FailingFiles : public FileSystem {
 public:
  FailingFiles(FileSystem& files, const std::set<int>& failing)
      : files_(files), failing_(failing) {}

  bool Exists(std::string_view path) override { return files_.Exists(path); }
  std::optional<FileFacts> Look(std::string_view path) override { return files_.Look(path); }
  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    return files_.IdentifyFolder(path);
  }
  void ExpectFolder(std::string_view folder, const FolderIdentity& identity) override {
    files_.ExpectFolder(folder, identity);
  }
  std::string ResolveFolder(std::string_view path) override { return files_.ResolveFolder(path); }
  bool IsSameEntry(std::string_view a, std::string_view b) override {
    return files_.IsSameEntry(a, b);
  }
  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    return files_.IsVeryFile(path, file);
  }
  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    return files_.List(path, go_on, entries);
  }
  bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on) override {
    return Works() && files_.MoveFile(from, to, go_on);
  }
  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override {
    return Works() && files_.CopyFile(from, to, go_on, copied);
  }
  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override {
    return Works() && files_.DeleteMadeFile(path, made);
  }
  bool CreateDirectory(std::string_view path) override {
    return Works() && files_.CreateDirectory(path);
  }
  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override {
    return Works() && files_.DeleteMadeFolder(path, made);
  }
  int Problem() const override { return files_.Problem(); }

 private:
  bool Works() { return !failing_.contains(++operations_); }

  FileSystem& files_;
  const std::set<int>& failing_;
  int operations_ = 0;
};

constexpr int kLongTime = 50;  // milliseconds after which events run between the told steps

PlainRow AsPlain(const Records& records, const FileRow& row) {
  return {records.Path(row),
          row.checked,
          row.sourceFileName,
          std::string(MarkText(row.mark)),
          row.newFileName,
          std::string(row.Rollback()),
          std::string(row.Temp()),
          records.NewPath(row),
          row.mode,
          std::string(row.PlannedName()),
          row.RowTag,
          {}};
}

std::string Items(const PlainRow& row) {
  return "path=" + row.path + (row.checked ? "" : " unchecked") + " source=" + row.source + " " +
         row.mark + " new=" + row.new_name + " rollback=" + row.rollback + " temp=" + row.temp +
         " newPath=" + row.new_path + " mode=" + std::to_string(row.mode) +
         " planned=" + row.planned_name + " RowTag=" + std::to_string(row.RowTag);
}

}  // namespace

std::unique_ptr<ModelDisk> MakeMemoryDisk(bool case_blind) {
  return std::make_unique<MemoryDisk>(case_blind);
}

std::unique_ptr<ModelDisk> MakeRealDisk(bool two_devices) {
  return std::make_unique<RealDisk>(two_devices);
}

TwoWorlds::TwoWorlds(ModelDisk& disk, bool case_blind) : disk_(disk) {
  plain_files_.case_blind = case_blind;
  for (const std::string& folder : {disk.root, disk.out_root}) {
    for (std::size_t end = 0; end != folder.npos; end = folder.find('/', end + 1)) {
      plain_files_.folders.insert(folder.substr(0, end));
    }
    plain_files_.folders.insert(folder);
  }
}

void TwoWorlds::MakeFolder(const std::string& path) {
  plain_files_.folders.insert(path);
  disk_.MakeFolder(path);
}

void TwoWorlds::Write(const std::string& path, const std::string& content) {
  if (IsFile(path)) --owned[plain_files_.contents[path]];
  ++owned[content];
  plain_files_.contents[path] = content;
  disk_.Write(path, content);
}

void TwoWorlds::MakeLink(const std::string& path, const std::string& leads_to) {
  ++owned["-> " + leads_to];
  LinkIn(plain_files_, path, leads_to);
  disk_.MakeLink(path, leads_to);
}

void TwoWorlds::Remove(const std::string& path) {
  --owned[plain_files_.contents[path]];
  plain_files_.contents.erase(path);
  plain_files_.folder_links.erase(path);
  disk_.Remove(path);
}

void TwoWorlds::AddRow(const std::string& folder, const std::string& name, bool checked) {
  records_.AddRecord("", folder, name, FileDate(), 0, "");
  records_[records_.Count() - 1].checked = checked;
  PlainRow row;
  row.path = folder;
  row.source = name;
  row.checked = checked;
  model.rows.push_back(row);
}

void TwoWorlds::Plan(std::size_t row, const std::string& new_name) {
  model.rows[row].new_name = new_name;
  records_[row].newFileName = new_name;
}

void TwoWorlds::CountAnew() {
  model.counted.assign(model.rows.size(), 0);
  model.progress = 0;
  state_.gRowCounted.assign(records_.Count(), 0);
  state_.panes.progressValue = 0;
}

void TwoWorlds::SetOptions(const PlainOptions& options) {
  model.options = options;
  output_ = {options.destination, options.fdDestination, options.subfolders,
             options.fdSourceFolder};
  state_.numbering.gConflictAddNumber = static_cast<std::int16_t>(options.add_number);
  state_.numbering.gNumberLeft = options.left;
  state_.numbering.gNumberRight = options.right;
}

template <class Pass>
void TwoWorlds::Do(const PlainTrouble& trouble, Pass&& pass) {
  state_.gCancelRequested = false;
  reports_.DeleteAll();
  events_.count = 0;
  events_.on_events = [&] {
    if (events_.count == trouble.cancel_at) state_.gCancelRequested = true;
  };
  disk_.OnCopy([&] { clock_.now_ms += trouble.slow_copies ? kLongTime : 0; });
  FailingFiles files(disk_.Files(), trouble.failing);
  pass(files);
  disk_.Files().LetFoldersGo();
}

void TwoWorlds::Run(const PlainTrouble& trouble) {
  FailingFiles plain(plain_files_, trouble.failing);
  model.Run(plain, trouble);
  Do(trouble, [&](FileSystem& files) {
    RenameRun(output_, records_, state_, files, events_, clock_, reports_).RunRename();
  });
}

void TwoWorlds::Undo(const PlainTrouble& trouble) {
  FailingFiles plain(plain_files_, trouble.failing);
  model.Undo(plain, trouble);
  Do(trouble, [&](FileSystem& files) {
    UndoRun(records_, state_, files, events_, clock_, reports_).Undo();
  });
}

std::string TwoWorlds::Differences() {
  return RowDifferences() + DiskDifferences() + Losses() + FalseMarks();
}

/// Each content that was written stands somewhere, a copy of it does not count for another.
std::string TwoWorlds::Losses() const {
  std::map<std::string, int> there;
  for (const auto& [path, content] : plain_files_.contents) ++there[content];
  std::string losses;
  for (const auto& [content, count] : owned) {
    if (there[content] < count) losses += "lost: " + content + "\n";
  }
  return losses;
}

/// A done row's file is where the row says, and no other: its content tells where it was first.
std::string TwoWorlds::FalseMarks() {
  std::string lies;
  for (const PlainRow& row : model.rows) {
    const std::string path = (row.new_path.empty() ? row.path : row.new_path) + row.new_name;
    if (row.RowTag != 1 || meddled) continue;
    const auto found = plain_files_.contents.find(plain_files_.Real(path));
    const bool there = found != plain_files_.contents.end() &&
                       (!found->second.starts_with("first at ") ||
                        found->second == "first at " + row.path + row.rollback);
    if (!there) lies += "done, but not there: " + path + "\n";
  }
  return lies;
}

std::map<std::string, std::string> TwoWorlds::Everything() {
  return AllOf(plain_files_, disk_);
}

std::vector<std::string> TwoWorlds::Rows() const {
  std::vector<std::string> rows;
  for (const PlainRow& row : model.rows) rows.push_back(Items(row));
  return rows;
}

std::string TwoWorlds::RowDifferences() const {
  std::string differences;
  const auto compare = [&](const std::string& what, const std::string& expected,
                           const std::string& actual) {
    if (expected != actual) {
      differences += what + "\n  model " + expected + "\n  pass  " + actual + "\n";
    }
  };
  for (std::size_t i = 0; i < model.rows.size(); ++i) {
    compare("row " + std::to_string(i), Items(model.rows[i]),
            Items(AsPlain(records_, records_[i])));
    compare("gRowCounted " + std::to_string(i), std::to_string(model.counted[i]),
            std::to_string(state_.gRowCounted[i]));
  }
  compare("progress", std::to_string(model.progress), std::to_string(state_.panes.progressValue));
  compare("gCancelRequested", std::to_string(model.gCancelRequested),
          std::to_string(state_.gCancelRequested));
  std::string expected, actual;
  for (const std::string& record : model.failures) expected += record + " ";
  for (const FailureRecord& record : reports_.gFailureReport) {
    actual += PlainModel::Joined({record.path, record.source_name, record.new_name}) + " ";
  }
  compare("gFailureReport", expected, actual);
  expected = actual = "";
  for (const std::string& record : model.conflicts) expected += record + " ";
  for (const ConflictRecord& record : reports_.gConflictReport) {
    actual += PlainModel::Joined({record.path, record.new_path, record.source_name,
                                  record.final_name, record.planned_name}) +
              " ";
  }
  compare("gConflictReport", expected, actual);
  return differences;
}

std::string TwoWorlds::DiskDifferences() {
  const std::map<std::string, std::string> expected = Everything();
  std::map<std::string, std::string> actual = disk_.Everything();
  if (actual == expected) return "";
  std::string differences;
  for (const auto& [path, content] : expected) {
    const auto found = actual.find(path);
    if (found == actual.end()) {
      differences += "missing " + path + " = " + content + "\n";
    } else if (found->second != content) {
      differences += path + " = " + found->second + " instead of " + content + "\n";
    }
    if (found != actual.end()) actual.erase(found);
  }
  for (const auto& [path, content] : actual) differences += "extra " + path + "=" + content + "\n";
  return differences;
}

std::string Readable(const std::string& t) {
  std::string readable;
  for (const char c : t) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n' || (byte >= 0x20 && byte < 0x7F)) {
      readable += c;
    } else {
      char buffer[8];
      std::snprintf(buffer, sizeof buffer, "\\x%02X", byte);
      readable += buffer;
    }
  }
  return readable;
}
