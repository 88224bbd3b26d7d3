#include "rename/run_journal.h"

#include <cerrno>
#include <chrono>
#include <utility>

namespace {

constexpr std::size_t kLastRecord = 16;  ///< bytes: it says that the journal isn't complete

}  // namespace

void RunJournal::GoOnWith(std::unique_ptr<JournalFile> file, std::uint32_t folders) {
  file_ = std::move(file);
  folders_ = folders;
}

void RunJournal::Begin(const journal::PassFacts& pass) {
  pass_ = pass;
  begun_ = false;
  bytes_.clear();
}

std::uint32_t RunJournal::Folder(const std::string& path, const FolderIdentity& identity) {
  if (!begun_) writer_.Begin(bytes_, pass_);
  begun_ = true;
  writer_.Folder(bytes_, path, identity);
  return folders_++;
}

void RunJournal::Before(const journal::Operation& operation) {
  if (!begun_) writer_.Begin(bytes_, pass_);
  begun_ = true;
  writer_.Before(bytes_, operation);
  Write();
}

void RunJournal::CopyIsWhole(const CopyIdentities& copied) {
  writer_.CopyIsWhole(bytes_, copied);
  Write();
}

void RunJournal::After(journal::Outcome outcome, const FileIdentity& made) {
  writer_.After(outcome, made);
}

void RunJournal::End() {
  if (!begun_) return;
  writer_.End(bytes_);
  Write();
  Sync();
}

void RunJournal::Incomplete() {
  Stop(ECANCELED);
}

void RunJournal::Sync() {
  if (file_ && written_) file_->Sync();
  written_ = false;
}

bool RunJournal::Remove() {
  const bool gone = file_ == nullptr || file_->Remove();
  file_.reset();
  folders_ = 0;
  problem_ = 0;
  return gone;
}

/// In one piece, so that the program's end can't tear it.
void RunJournal::Write() {
  if (problem_ == 0 && file_ == nullptr) MakeFile();
  if (problem_ == 0) {
    const bool fits = file_->Size() + bytes_.size() + kLastRecord <= journal::kLongestFile;
    if (!fits) errno = EFBIG;
    if (!fits || !file_->Append(bytes_)) Stop(errno);
    written_ = true;
  }
  bytes_.clear();
}

void RunJournal::MakeFile() {
  const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::system_clock::now().time_since_epoch());
  std::string name = std::to_string(now.count());
  name.append("-").append(std::to_string(pass_.mark.process)).append(kJournalEnding);
  file_ = JournalFile::Make(folder_, name);
  if (file_ == nullptr) return Stop(errno);
  bytes_.insert(0, journal::kFirstBytes);
}

/// A journal that goes on after a gap would tell of files where they aren't. One that holds nothing
/// stays empty: so the next start knows it for one of ours, and deletes it.
void RunJournal::Stop(int problem) {
  if (problem_ == 0 && file_ != nullptr && file_->Size() > 0) {
    bytes_.clear();
    writer_.Incomplete(bytes_);
    file_->Append(bytes_);
  }
  problem_ = problem != 0 ? problem : EIO;
}
