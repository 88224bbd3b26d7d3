#include "rename/model_world.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "rename/run.h"
#include "rename/undo.h"

namespace {

class MemoryDisk : public ModelDisk {
 public:
  MemoryDisk() {
    root = "/m";
    out_root = "/m/o";
    files_.folders = {"", root, out_root};
    files_.fails = [this](std::string_view operation, std::string_view path) {
      const auto source = files_.contents.find(std::string(path));
      return operation == "copy" && source != files_.contents.end() &&
             source->second == kLinkContent;
    };
  }
  FileSystem& Files() override { return files_; }
  void MakeFolder(const std::string& path) override { files_.folders.insert(path); }
  void Write(const std::string& path, const std::string& content) override {
    files_.contents[path] = content;
  }
  void MakeDanglingLink(const std::string& path) override { Write(path, kLinkContent); }
  void Remove(const std::string& path) override { files_.contents.erase(path); }
  void OnCopy(std::function<void()> between) override { files_.in_copy = std::move(between); }
  std::map<std::string, std::string> Everything() override {
    std::map<std::string, std::string> all = files_.contents;
    for (const std::string& folder : files_.folders) {
      if (folder.starts_with(root + "/")) all[folder] = kFolderContent;
    }
    return all;
  }

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
  void MakeDanglingLink(const std::string& path) override {
    std::filesystem::create_symlink("nowhere", path);
  }
  void Remove(const std::string& path) override { std::filesystem::remove(path); }
  void OnCopy(std::function<void()>) override {}
  std::map<std::string, std::string> Everything() override {
    std::map<std::string, std::string> all;
    for (const TempFolder* folder : {&in_, &out_}) {
      for (const auto& entry :
           std::filesystem::recursive_directory_iterator(folder->path() + "/")) {
        all[entry.path()] = entry.is_symlink()     ? kLinkContent
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
          0};
}

std::string Items(const PlainRow& row) {
  return "path=" + row.path + (row.checked ? "" : " unchecked") + " source=" + row.source + " " +
         row.mark + " new=" + row.new_name + " rollback=" + row.rollback + " temp=" + row.temp +
         " newPath=" + row.new_path + " mode=" + std::to_string(row.mode) +
         " planned=" + row.planned_name + " RowTag=" + std::to_string(row.RowTag);
}

}  // namespace

std::unique_ptr<ModelDisk> MakeMemoryDisk() {
  return std::make_unique<MemoryDisk>();
}

std::unique_ptr<ModelDisk> MakeRealDisk(bool two_devices) {
  return std::make_unique<RealDisk>(two_devices);
}

TwoWorlds::TwoWorlds(ModelDisk& disk) : disk_(disk) {
  for (const std::string& folder : {disk.root, disk.out_root}) {
    for (std::size_t end = 0; end != folder.npos; end = folder.find('/', end + 1)) {
      model.disk[folder.substr(0, end)] = {PlainEntry::kFolder, "", 0};
    }
    model.disk[folder] = {PlainEntry::kFolder, "", 0};
  }
}

void TwoWorlds::MakeFolder(const std::string& path) {
  model.disk[path] = {PlainEntry::kFolder, "", 0};
  disk_.MakeFolder(path);
}

void TwoWorlds::Write(const std::string& path, const std::string& content) {
  owned.erase(model.disk[path].serial);
  model.disk[path] = {PlainEntry::kFile, content, ++model.last_serial};
  owned.insert(model.last_serial);
  disk_.Write(path, content);
}

void TwoWorlds::MakeDanglingLink(const std::string& path) {
  model.disk[path] = {PlainEntry::kLink, kLinkContent, ++model.last_serial};
  owned.insert(model.last_serial);
  disk_.MakeDanglingLink(path);
}

void TwoWorlds::Remove(const std::string& path) {
  owned.erase(model.disk[path].serial);
  model.disk.erase(path);
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
  state_.gConflictAddNumber = static_cast<std::int16_t>(options.add_number);
  state_.gNumberLeft = options.left;
  state_.gNumberRight = options.right;
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
  model.Run(trouble);
  Do(trouble, [&](FileSystem& files) {
    RenameRun(output_, records_, state_, files, events_, clock_, reports_).RunRename();
  });
}

void TwoWorlds::Undo(const PlainTrouble& trouble) {
  model.Undo(trouble);
  Do(trouble, [&](FileSystem& files) {
    UndoRun(output_, records_, state_, files, events_, clock_, reports_).Undo();
  });
}

std::string TwoWorlds::Differences() {
  std::set<int> lost = owned;
  for (const auto& [path, entry] : model.disk) lost.erase(entry.serial);
  return (lost.empty() ? "" : "the model itself has lost a file\n") + RowDifferences() +
         DiskDifferences();
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
  std::map<std::string, std::string> expected;
  for (const auto& [path, entry] : model.disk) {
    const bool inside =
        path.starts_with(disk_.root + "/") || path.starts_with(disk_.out_root + "/");
    if (!inside) continue;
    expected[path] = entry.kind == PlainEntry::kFolder ? kFolderContent : entry.content;
  }
  std::map<std::string, std::string> actual = disk_.Everything();
  if (disk_.out_root.starts_with(disk_.root)) expected[disk_.out_root] = kFolderContent;
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
