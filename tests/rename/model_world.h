#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/pass.h"
#include "core/records.h"
#include "core/run_state.h"
#include "rename/forecast.h"
#include "rename/plain_model.h"
#include "rename/result_rows.h"
#include "rename/run.h"
#include "rename/run_output.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

/// What goes wrong during one pass; all counted from 1, 0 is never.
struct Trouble {
  int cancel_at = 0;         ///< at which letting of events the user cancels
  bool slow_copies = false;  ///< events run inside each copy too; in memory only
  std::set<int> failing;     ///< which changes of the disk fail; in memory only
};

/// The real passes over a disk, beside the plain model over one in memory.
class TwoWorlds {
 public:
  enum Disk { kMemory, kCaseBlind, kReal, kTwoDevices };
  explicit TwoWorlds(Disk disk) {
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

  bool Has(const std::string& path) { return plain_files_.Look(path).has_value(); }
  bool IsFile(const std::string& path) { return plain_files_.contents.contains(path); }

  void MakeFolder(const std::string& path) {
    for (MemoryFiles* files : both_) files->folders.insert(path);
    if (IsReal()) std::filesystem::create_directory(path);
  }

  void Write(const std::string& path, const std::string& content) {
    if (IsFile(path)) owned_.erase(plain_files_.contents[path]);
    owned_.insert(content);
    for (MemoryFiles* files : both_) files->contents[path] = content;
    if (IsReal()) std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
  }

  /// `leads_to` is a folder or nothing.
  void MakeLink(const std::string& path, const std::string& leads_to) {
    for (MemoryFiles* files : both_) {
      files->contents[path] = "-> " + leads_to;
      if (files->folders.contains(leads_to)) files->folder_links[path] = leads_to;
    }
    owned_.insert("-> " + leads_to);
    if (IsReal()) std::filesystem::create_symlink(leads_to, path);
  }

  void Remove(const std::string& path) {
    owned_.erase(plain_files_.contents[path]);
    for (MemoryFiles* files : both_) files->contents.erase(path), files->folder_links.erase(path);
    if (IsReal()) std::filesystem::remove(path);
  }

  /// The model always looks first; a row that is `known` takes a free name at once.
  void AddRow(const std::string& folder, const std::string& name, bool checked, bool known) {
    const std::optional<FileFacts> facts = Files().Look(folder + name);
    const Fingerprint file = facts && known ? facts->fingerprint : 0;
    records_.AddRecord("", folder, name, FileDate(), 0, "", file);
    records_[records_.Count() - 1].checked = checked;
    PlainRow& row = model.rows.emplace_back();
    row.path = folder, row.checked = checked, row.source = name;
  }

  void Plan(std::size_t row, const std::string& new_name) {
    model.rows[row].new_name = new_name;
    records_[row].newFileName = new_name;
  }

  /// As the mode after a preview does.
  void CountAnew() {
    for (PlainRow& row : model.rows) row.counted = false;
    state_.gRowCounted.assign(records_.Count(), 0);
    state_.panes.progressValue = 0;
  }

  void SetOptions(const PlainOptions& options) {
    model.options = options;
    output_ = {options.destination, options.fdDestination, options.subfolders,
               options.fdSourceFolder};
    state_.numbering = {options.add_number, options.left, options.right};
  }

  /// What a forecast says of each row that a run would take: 'n' gets a number, 'f' fails for its
  /// name, '.' neither. It stops after every look at the disk.
  std::string Foretold() {
    FileSystem& files = Files();
    Forecast forecast(records_, files, output_, state_.numbering, 255);
    while (!forecast.Go([] { return false; })) continue;
    files.LetFoldersGo();
    std::string told;
    for (std::size_t i = 0; i < records_.Count(); ++i) {
      const bool taken = records_[i].checked && records_[i].RowTag != 1;
      told += taken ? ".nff"[forecast.Of(i)] : ' ';
    }
    return told;
  }

  /// Whether links change what comes: copied they fail, and moved they lead elsewhere.
  bool LinksMatter() const {
    const auto is_link = [](const auto& file) { return file.second.starts_with("-> "); };
    return !plain_files_.folder_links.empty() ||
           (model.options.destination == 1 && std::ranges::any_of(plain_files_.contents, is_link));
  }

  /// The same of what the run has done with these rows. Where there is no folder to put a file
  /// into, the problem may be the folder's.
  std::string Outcome(std::string foretold) {
    const std::set<int> in_folder = {kNameHoldsSeparator, ENAMETOOLONG, EEXIST, EINVAL};
    for (std::size_t i = 0; i < records_.Count(); ++i) {
      const FileRow& row = records_[i];
      const char done = row.PlannedName().empty() ? '.' : 'n';
      const std::string folder = OutputText(records_, row, output_);
      const bool there =
          Files().IdentifyFolder(folder.substr(0, folder.rfind('/') + 1)).has_value();
      const std::string& name = row.newFileName;
      const bool of_name = name.empty() || !StaysInItsFolder(name) || name.size() > 255 ||
                           (there && in_folder.contains(row.problem));
      const char failed = of_name ? 'f' : '.';
      if (foretold[i] != ' ') foretold[i] = row.RowTag == 1 ? done : failed;
    }
    return foretold;
  }

  void Run(const Trouble& trouble) {
    Do(trouble, [this](Pass& pass) { RenameRun(pass, output_, reports_).RunRename(); });
    model.Run(trouble.cancel_at, trouble.slow_copies);
  }

  void Undo(const Trouble& trouble) {
    Do(trouble, [this](Pass& pass) { UndoRun(pass, reports_).Undo(); });
    model.Undo(trouble.cancel_at);
  }

  /// Where the two differ, in words, and which files are lost; empty when all is well.
  std::string Differences() {
    std::vector<std::string> expected = RowsAndFiles(), told = Told();
    expected.push_back(std::to_string(std::ranges::count(model.rows, true, &PlainRow::counted)) +
                       (model.cancelled ? " rows, cancelled" : " rows"));
    expected.insert(expected.end(), model.failures.begin(), model.failures.end());
    expected.insert(expected.end(), model.conflicts.begin(), model.conflicts.end());
    expected.resize(std::max(expected.size(), told.size()));
    told.resize(expected.size());
    std::string differences;
    for (std::size_t i = 0; i < told.size(); ++i) {
      if (expected[i] == told[i]) continue;
      differences += "model " + expected[i] + "\n pass " + told[i] + "\n";
    }
    std::set<std::string> lost = owned_;
    for (const auto& [path, content] : plain_files_.contents) lost.erase(content);
    for (const std::string& content : lost) differences += "lost: " + content + "\n";
    return differences;
  }

  /// All files, links and folders of the case, by path, as TempFolder::Everything tells.
  std::map<std::string, std::string> Everything() const { return AllOf(plain_files_); }

  /// The items of each row, and everything.
  std::vector<std::string> RowsAndFiles() const {
    std::vector<std::string> lines;
    for (const PlainRow& row : model.rows) lines.push_back(Items(row));
    for (const auto& [path, content] : Everything()) lines.push_back(path + " = " + content);
    return lines;
  }

  std::string root = "/m";        ///< the case's folder, without a closing separator
  std::string out_root = "/m/o";  ///< where output folders are; may be on another file system

 private:
  /// In milliseconds; after it events run between the told steps.
  static constexpr int kLongTime = 50;

  static std::string Items(const PlainRow& row) {
    return PlainModel::Joined({row.path, row.checked ? "checked" : "", row.source, row.mark,
                               row.new_name, row.rollback, row.temp, row.new_path,
                               std::to_string(row.mode), row.planned_name,
                               std::to_string(row.RowTag), row.counted ? "counted" : ""});
  }

  static std::string ItemsOf(const Records& records, const FileRow& row, bool counted) {
    return PlainModel::Joined(
        {records.Path(row), row.checked ? "checked" : "", row.sourceFileName,
         std::string(MarkText(row.mark)), row.newFileName, std::string(row.Rollback()),
         std::string(row.Temp()), records.NewPath(row), std::to_string(row.mode),
         std::string(row.PlannedName()), std::to_string(row.RowTag), counted ? "counted" : ""});
  }

  void Do(const Trouble& trouble, const std::function<void(Pass&)>& real_pass) {
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
    FileSystem& files = Files();
    const Services services = fakes_.With(files, fakes_.clock, fakes_.locale);
    Pass pass(records_, state_, services, records_.Count());
    real_pass(pass);
    files.LetFoldersGo();
  }

  /// What the passes have written, as the model would tell it.
  std::vector<std::string> Told() const {
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
      const auto parts = {r.path, r.new_path, r.source_name, r.final_name, r.planned_name};
      told.push_back(PlainModel::Joined(parts));
    }
    return told;
  }

  std::map<std::string, std::string> AllOf(const MemoryFiles& files) const {
    std::map<std::string, std::string> all = files.contents;
    for (const std::string& folder : files.folders) {
      const bool inside = folder.starts_with(root + "/") || folder.starts_with(out_root + "/");
      if (inside) all[folder] = "/";
    }
    return all;
  }

  std::map<std::string, std::string> OnDisk() const {
    std::map<std::string, std::string> all;
    for (const TempFolder* folder : {in_.get(), out_.get()}) {
      for (const auto& [name, content] : folder->Everything()) all[*folder / name] = content;
    }
    return all;
  }

  bool IsReal() const { return in_ != nullptr; }
  FileSystem& Files() { return IsReal() ? *files_ : memory_; }

  MemoryFiles plain_files_;
  MemoryFiles memory_;  ///< the disk of the passes, unless they work on a real one
  MemoryFiles* const both_[2] = {&plain_files_, &memory_};
  std::unique_ptr<TempFolder> in_, out_;
  std::unique_ptr<FileSystem> files_;
  std::set<std::string> owned_;  ///< contents that must still be there
  Records records_;
  RunState state_;
  RunOutput output_;
  RunReports reports_;
  FakeServices fakes_;

 public:
  PlainModel model{plain_files_};
};
