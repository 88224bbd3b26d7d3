#include "rename/left_runs.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "core/pass.h"
#include "core/records.h"
#include "platform/journal_file.h"
#include "rename/journal_records.h"
#include "rename/journaled_files.h"
#include "rename/net_files.h"
#include "rename/run_journal.h"
#include "rename/undo.h"
#include "settings/output_modes.h"
#include "trace/err_trace.h"

namespace {

/// What is done is written down, and keeps the picture true.
class Both final : public journal::Sink {
 public:
  Both(RunJournal& journal, NetFiles& net) : journal_(journal), net_(net) {}
  void Begin(const journal::PassFacts& pass) override { journal_.Begin(pass), net_.Begin(pass); }
  std::uint32_t Folder(const std::string& path, const FolderIdentity& identity) override {
    journal_.Folder(path, identity);
    return net_.Folder(path, identity);
  }
  void Before(const journal::Operation& operation) override {
    journal_.Before(operation), net_.Before(operation);
  }
  void CopyIsWhole(const CopyIdentities& copied) override {
    journal_.CopyIsWhole(copied), net_.CopyIsWhole(copied);
  }
  void After(journal::Outcome outcome, const FileIdentity& made) override {
    journal_.After(outcome, made), net_.After(outcome, made);
  }
  void End() override { journal_.End(), net_.End(); }
  void Incomplete() override { journal_.Incomplete(), net_.Incomplete(); }

 private:
  RunJournal& journal_;
  NetFiles& net_;
};

class FoundRun final : public LeftRun {
 public:
  FoundRun(std::unique_ptr<JournalFile> file, NetFiles net, std::uint64_t end)
      : file_(std::move(file)), net_(std::move(net)), end_(end) {
    TellFacts();
  }

  const Facts& Told() const override { return facts_; }
  std::vector<File> Files(std::size_t most) const override;
  bool PutBack(const Services& services, RunState& state) override;
  bool Keep() override { return file_ ? file_->Remove() : journal_.Remove(); }

  bool IsWhole() const { return std::ranges::none_of(net_.files, &NetFiles::File::IsElsewhere); }
  /// What is left to do when all files are back.
  void RemoveMadeFolders(FileSystem& files);

 private:
  void TellFacts();
  Change ChangeOf(const NetFiles::File& file) const;
  void WriteOn(journal::Sink& sink);
  void MakeRows(Records& records, std::vector<std::size_t>& numbers) const;
  void MakeRowsOf(Records& records, const NetFiles::File& file) const;
  FileRow& NewRow(Records& records, const journal::Place& former,
                  const journal::Place& present) const;

  std::unique_ptr<JournalFile> file_;  ///< until it is written on
  RunJournal journal_;
  NetFiles net_;
  std::uint64_t end_;  ///< of what could be read of the file
  Facts facts_;
};

LeftRun::Change FoundRun::ChangeOf(const NetFiles::File& file) const {
  if (file.twin) return Change::kCopied;
  return file.present.folder == file.former.folder ? Change::kRenamed : Change::kMoved;
}

void FoundRun::TellFacts() {
  const auto is_run = [](const auto& pass) { return pass.work == journal::Work::kRun; };
  const auto last_run = std::ranges::find_if(net_.passes.rbegin(), net_.passes.rend(), is_run);
  const journal::PassFacts& run = last_run == net_.passes.rend() ? net_.passes[0] : *last_run;
  facts_ = {};
  facts_.began = net_.passes[0].began;
  facts_.source_folder = run.source_folder;
  facts_.output_mode = run.output_mode;
  facts_.work = static_cast<Work>(net_.passes.back().work);
  facts_.cut_off = !net_.ended;
  facts_.incomplete = net_.incomplete;
  facts_.wanted = net_.wanted;
  for (const NetFiles::File& file : net_.files) {
    if (!file.IsElsewhere()) continue;
    const Change change = ChangeOf(file);
    ++(change == Change::kRenamed ? facts_.renamed
       : change == Change::kMoved ? facts_.moved
                                  : facts_.copied);
  }
}

std::vector<LeftRun::File> FoundRun::Files(std::size_t most) const {
  std::vector<File> told;
  for (const NetFiles::File& file : net_.files) {
    if (told.size() == most) break;
    if (!file.IsElsewhere()) continue;
    const std::string present = net_.PathOf(file.twin ? file.twin->place : file.present);
    told.push_back({net_.PathOf(file.former), present, ChangeOf(file), file.problem});
  }
  return told;
}

/// The journal is written on behind its last whole record, with what was found.
void FoundRun::WriteOn(journal::Sink& sink) {
  if (file_) {
    const bool whole = file_->CutTo(end_);
    journal_.GoOnWith(std::move(file_), net_.FolderCount());
    if (!whole) journal_.Incomplete();
  }
  journal::PassFacts pass = net_.passes.back();
  pass.mark = OwnMark();
  pass.work = journal::Work::kPutBack;
  sink.Begin(pass);
  net_.TellFound(journal_);
}

FileRow& FoundRun::NewRow(Records& records, const journal::Place& former,
                          const journal::Place& present) const {
  records.AddRecord("", net_.folders[former.folder].path, former.name, FileDate(), 0, "");
  FileRow& row = records[records.Count() - 1];
  row.KeepRollback();
  row.RowTag = 1;
  row.mark = Mark::kDone;
  row.newFileName = present.name;
  const bool here = present.folder == former.folder;
  row.mode = here ? kUseSourceFolder : kMoveTo;
  if (!here) records.SetNewPath(row, net_.folders[present.folder].path);
  return row;
}

/// The rows as runs would have left them. What was made of a file that was on its way to another
/// device goes first, by a row of its own.
void FoundRun::MakeRowsOf(Records& records, const NetFiles::File& file) const {
  const bool apart = file.present.folder != file.former.folder;
  if (file.twin) {
    FileRow& row = NewRow(records, apart ? file.present : file.former, file.twin->place);
    row.mode = kCopyTo;
    records.SetMadeCopy(row, file.twin->both);
    if (!apart && file.present.name != file.former.name) row.MoveAside(file.present.name);
  }
  if (!file.twin || apart)
    NewRow(records, file.former, file.present).fingerprint = file.fingerprint;
}

void FoundRun::MakeRows(Records& records, std::vector<std::size_t>& numbers) const {
  for (std::size_t i = 0; i < net_.files.size(); ++i) {
    if (!net_.files[i].IsElsewhere()) continue;
    MakeRowsOf(records, net_.files[i]);
    numbers.resize(records.Count(), i);
  }
  for (const auto& folder : net_.folders) {
    if (folder.identity.inode != 0) records.scanned_folders[folder.path] = folder.identity;
  }
  for (const auto& folder : net_.made_folders) {
    records.made_folders.push_back({net_.PathOf(folder.place), folder.identity});
  }
}

bool FoundRun::PutBack(const Services& services, RunState& state) {
  return ErrTrace::inner("LeftRun.PutBack", [&] {
    Both both(journal_, net_);
    WriteOn(both);
    JournaledServices journaled(
        services, both, [&] { journal_.Sync(); },
        [&](const auto& from, Fingerprint file) { return net_.Holds(from, file); });
    Records records;
    std::vector<std::size_t> numbers;
    MakeRows(records, numbers);
    state.counts = {0, static_cast<std::int64_t>(records.Count()), 0};
    RunReports reports;
    Pass undo(records, state, journaled.Get(), records.Count());
    const bool done = UndoRun(undo, reports).Undo();
    net_.FindMoved(services.files);
    services.files.LetFoldersGo();
    for (NetFiles::File& file : net_.files) file.problem = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      if (records[i].TakesPartInUndo()) net_.files[numbers[i]].problem = records[i].problem;
    }
    both.End();
    TellFacts();
    if (done && IsWhole()) journal_.Remove();
    return done;
  });
}

void FoundRun::RemoveMadeFolders(FileSystem& files) {
  if (net_.made_folders.empty()) return;
  WriteOn(journal_);
  journal_.End();
  for (auto folder = net_.made_folders.rbegin(); folder != net_.made_folders.rend(); ++folder) {
    files.DeleteMadeFolder(net_.PathOf(folder->place), folder->identity);
  }
}

bool IsOurs(const journal::PassFacts& pass) {
  const ProcessMark own = OwnMark();
  const bool own_process = pass.mark.process == own.process && pass.mark.started == own.started;
  return pass.mark.machine == own.machine && pass.mark.user == own.user &&
         (own_process || !MayLive(pass.mark));
}

}  // namespace

std::vector<std::string> LeftJournals(const std::string& folder) {
  std::vector<std::string> journals;
  if (!folder.empty()) journals = JournalFile::Names(folder, kJournalEnding);
  std::ranges::sort(journals, std::greater<>());
  for (std::string& name : journals) name.insert(0, folder + "/");
  return journals;
}

std::unique_ptr<LeftRun> LeftRun::Read(const std::string& journal, FileSystem& files,
                                       const GoOn& go_on) {
  return ErrTrace::inner("LeftRun.Read", [&]() -> std::unique_ptr<LeftRun> {
    std::unique_ptr<JournalFile> file = JournalFile::Take(journal);
    if (!file) return nullptr;
    NetFiles net;
    const journal::ReadTo read = journal::Read(*file, net, go_on);
    if (!read.sound || !std::ranges::all_of(net.passes, IsOurs)) return nullptr;
    if (net.passes.empty()) {
      file->Remove();
      return nullptr;
    }
    // What was written last may not have come to the disk before the machine's end.
    const bool other_boot = net.passes.back().mark.boot != OwnMark().boot;
    net.incomplete = net.incomplete || !read.whole || (!net.ended && other_boot);
    const auto written = files.Identify(journal);
    net.written_ns = written ? written->modified_ns : 0;
    if (!net.Find(files, go_on)) return nullptr;
    auto left = std::make_unique<FoundRun>(std::move(file), std::move(net), read.end);
    if (left->IsWhole()) {
      left->RemoveMadeFolders(files);
      left->Keep();
      left.reset();
    }
    files.LetFoldersGo();
    return left;
  });
}
