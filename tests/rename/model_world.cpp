#include "rename/model_world.h"

#include <algorithm>
#include <filesystem>

#include "rename/run.h"
#include "rename/undo.h"

namespace {

constexpr int kLongTime = 50;  // milliseconds after which events run between the told steps

std::string Items(const PlainRow& row) {
  return PlainModel::Joined({row.path, row.checked ? "checked" : "", row.source, row.mark,
                             row.new_name, row.rollback, row.temp, row.new_path,
                             std::to_string(row.mode), row.planned_name, std::to_string(row.RowTag),
                             row.counted ? "counted" : ""});
}

std::string ItemsOf(const Records& records, const FileRow& row, bool counted) {
  return PlainModel::Joined(
      {records.Path(row), row.checked ? "checked" : "", row.sourceFileName,
       std::string(MarkText(row.mark)), row.newFileName, std::string(row.Rollback()),
       std::string(row.Temp()), records.NewPath(row), std::to_string(row.mode),
       std::string(row.PlannedName()), std::to_string(row.RowTag), counted ? "counted" : ""});
}

std::string Content(const std::filesystem::directory_entry& entry) {
  if (entry.is_symlink()) return "-> " + std::filesystem::read_symlink(entry).string();
  if (entry.is_directory()) return kFolderContent;
  std::ifstream file(entry.path(), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TwoWorlds::TwoWorlds(Disk disk) {
  if (disk == kReal || disk == kTwoDevices) {
    in_ = std::make_unique<TempFolder>("/dev/shm");
    out_ = std::make_unique<TempFolder>(disk == kTwoDevices ? "" : "/dev/shm");
    files_ = MakePosixFileSystem();
    root = in_->path();
    out_root = out_->path();
  }
  plain_files_.case_blind = disk == kCaseBlind;
  for (const std::string& folder : {root + "/", out_root + "/"}) {
    for (std::size_t end = 0; end != folder.npos; end = folder.find('/', end + 1)) {
      plain_files_.folders.insert(folder.substr(0, end));
    }
  }
  memory_ = plain_files_;
}

void TwoWorlds::MakeFolder(const std::string& path) {
  for (MemoryFiles* files : both_) files->folders.insert(path);
  if (IsReal()) std::filesystem::create_directory(path);
}

void TwoWorlds::Write(const std::string& path, const std::string& content) {
  if (IsFile(path)) owned_.erase(plain_files_.contents[path]);
  owned_.insert(content);
  for (MemoryFiles* files : both_) files->contents[path] = content;
  if (IsReal()) std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

void TwoWorlds::MakeLink(const std::string& path, const std::string& leads_to) {
  for (MemoryFiles* files : both_) {
    files->contents[path] = "-> " + leads_to;
    if (files->folders.contains(leads_to)) files->folder_links[path] = leads_to;
  }
  owned_.insert("-> " + leads_to);
  if (IsReal()) std::filesystem::create_symlink(leads_to, path);
}

void TwoWorlds::Remove(const std::string& path) {
  owned_.erase(plain_files_.contents[path]);
  for (MemoryFiles* files : both_) files->contents.erase(path), files->folder_links.erase(path);
  if (IsReal()) std::filesystem::remove(path);
}

void TwoWorlds::AddRow(const std::string& folder, const std::string& name, bool checked) {
  records_.AddRecord("", folder, name, FileDate(), 0, "");
  records_[records_.Count() - 1].checked = checked;
  PlainRow& row = model.rows.emplace_back();
  row.path = folder, row.checked = checked, row.source = name;
}

void TwoWorlds::Plan(std::size_t row, const std::string& new_name) {
  model.rows[row].new_name = new_name;
  records_[row].newFileName = new_name;
}

void TwoWorlds::CountAnew() {
  for (PlainRow& row : model.rows) row.counted = false;
  state_.gRowCounted.assign(records_.Count(), 0);
  state_.panes.progressValue = 0;
}

void TwoWorlds::SetOptions(const PlainOptions& options) {
  model.options = options;
  output_ = {options.destination, options.fdDestination, options.subfolders,
             options.fdSourceFolder};
  const auto add_number = static_cast<std::int16_t>(options.add_number);
  state_.numbering = {add_number, options.left, options.right};
}

void TwoWorlds::Run(const Trouble& trouble) {
  Do(trouble, [this](Pass& pass) { RenameRun(pass, output_, reports_).RunRename(); });
  model.Run(trouble.cancel_at, trouble.slow_copies);
}

void TwoWorlds::Undo(const Trouble& trouble) {
  Do(trouble, [this](Pass& pass) { UndoRun(pass, reports_).Undo(); });
  model.Undo(trouble.cancel_at);
}

void TwoWorlds::Do(const Trouble& trouble, const std::function<void(Pass&)>& real_pass) {
  state_.gCancelRequested = false;
  reports_.DeleteAll();
  fakes_.events.count = 0;
  fakes_.events.on_events = [&] {
    if (fakes_.events.count == trouble.cancel_at) state_.gCancelRequested = true;
  };
  memory_.in_copy = [&] { fakes_.clock.now_ms += trouble.slow_copies ? kLongTime : 0; };
  for (MemoryFiles* files : both_) {
    files->fails = [failing = trouble.failing, call = 0](auto, auto) mutable {
      return failing.contains(++call);
    };
  }
  FileSystem& files = IsReal() ? *files_ : memory_;
  const Services services = fakes_.With(files, fakes_.clock, fakes_.locale);
  Pass pass(records_, state_, services, records_.Count());
  real_pass(pass);
  files.LetFoldersGo();
}

std::vector<std::string> TwoWorlds::RowsAndFiles() const {
  std::vector<std::string> lines;
  for (const PlainRow& row : model.rows) lines.push_back(Items(row));
  for (const auto& [path, content] : Everything()) lines.push_back(path + " = " + content);
  return lines;
}

/// What the passes have written, as the model would tell it.
std::vector<std::string> TwoWorlds::Told() const {
  std::vector<std::string> told;
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    told.push_back(ItemsOf(records_, records_[i], state_.gRowCounted[i] == 1));
  }
  for (const auto& [path, content] : IsReal() ? OnDisk() : AllOf(memory_)) {
    told.push_back(path + " = " + content);
  }
  told.push_back(std::to_string(state_.panes.progressValue) +
                 (state_.gCancelRequested ? " rows, cancelled" : " rows"));
  for (const FailureRecord& r : reports_.gFailureReport) {
    told.push_back(PlainModel::Joined({r.path, r.source_name, r.new_name}));
  }
  for (const ConflictRecord& r : reports_.gConflictReport) {
    told.push_back(
        PlainModel::Joined({r.path, r.new_path, r.source_name, r.final_name, r.planned_name}));
  }
  return told;
}

std::string TwoWorlds::Differences() {
  std::vector<std::string> expected = RowsAndFiles(), told = Told();
  expected.push_back(std::to_string(std::ranges::count(model.rows, true, &PlainRow::counted)) +
                     (model.cancelled ? " rows, cancelled" : " rows"));
  expected.insert(expected.end(), model.failures.begin(), model.failures.end());
  expected.insert(expected.end(), model.conflicts.begin(), model.conflicts.end());
  expected.resize(std::max(expected.size(), told.size()));
  told.resize(expected.size());
  std::string differences;
  for (std::size_t i = 0; i < told.size(); ++i) {
    if (expected[i] != told[i]) differences += "model " + expected[i] + "\n pass " + told[i] + "\n";
  }
  std::set<std::string> lost = owned_;
  for (const auto& [path, content] : plain_files_.contents) lost.erase(content);
  for (const std::string& content : lost) differences += "lost: " + content + "\n";
  return differences;
}

std::map<std::string, std::string> TwoWorlds::AllOf(const MemoryFiles& files) const {
  std::map<std::string, std::string> all = files.contents;
  for (const std::string& folder : files.folders) {
    const bool inside = folder.starts_with(root + "/") || folder.starts_with(out_root + "/");
    if (inside) all[folder] = kFolderContent;
  }
  return all;
}

std::map<std::string, std::string> TwoWorlds::OnDisk() const {
  std::map<std::string, std::string> all;
  for (const TempFolder* folder : {in_.get(), out_.get()}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder->path() + "/")) {
      all[entry.path()] = Content(entry);
    }
  }
  return all;
}
