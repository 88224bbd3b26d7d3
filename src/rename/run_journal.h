#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/journal_file.h"
#include "rename/journal_records.h"

/// How the names of all journals end.
inline constexpr std::string_view kJournalEnding = ".journal";

/// Writes down what runs and undos do with the files of one list, so that it can be taken back at
/// the next start should the program be ended amid of it. It lives as long as the rows can be
/// undone: one file holds all that has to be taken back together, so one deletion ends it. No run
/// fails or waits for it: what can't be written is left out, and Problem tells.
class RunJournal : public journal::Sink {
 public:
  /// Keeps journals in `folder` from now on; "", as at first: keeps none.
  void KeepIn(std::string folder) { folder_ = std::move(folder); }
  bool Keeps() const { return file_ != nullptr || !folder_.empty(); }

  /// Goes on with a file that tells of `folders` folders so far and ends in a whole record.
  void GoOnWith(std::unique_ptr<JournalFile> file, std::uint32_t folders);

  /// Nothing is written before the pass does something; the file is made then too.
  void Begin(const journal::PassFacts& pass) override;
  std::uint32_t Folder(const std::string& path, const FolderIdentity& identity) override;
  void Before(const journal::Operation& operation) override;
  void CopyIsWhole(const CopyIdentities& copied) override;
  void After(journal::Outcome outcome, const FileIdentity& made) override;
  void End() override;
  /// Nothing more is written.
  void Incomplete() override;

  /// Has what was written on the disk soon, and doesn't wait for it.
  void Sync();

  /// The rows can't be undone any more, or have been: the file goes. False when it can't.
  bool Remove();

  /// Why what was done isn't all told: errno; 0 while it is.
  int Problem() const { return problem_; }

 private:
  void Write();
  void MakeFile();
  void Stop(int problem);

  std::string folder_;
  std::unique_ptr<JournalFile> file_;
  journal::Writer writer_;
  std::string bytes_;  ///< what goes with the next writing
  journal::PassFacts pass_;
  bool begun_ = false;    ///< the pass stands in the file
  bool written_ = false;  ///< since the last sync
  std::uint32_t folders_ = 0;
  int problem_ = 0;
};
